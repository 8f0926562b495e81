#pragma once
// Array attributes from the plug-in's buffers: the data is handed over in
// place, never copied or formatted.
#include <vector>

#include "importers/sceneapi/nvxScene_api.h"

// Float triples (vertices, normals): the count is the number of triples.
void setFloatTriples(nvxScene_api& scene, const char* name, const std::vector<float>& values);
// Plain floats (uv): the count is the number of floats.
void setFloats(nvxScene_api& scene, const char* name, const std::vector<float>& values);
// Integers (triangle indices): the count is the number of integers.
void setInts(nvxScene_api& scene, const char* name, const std::vector<int>& values);
// Doubles (knots, control points of exact shapes): the count is the number of doubles.
void setDoubles(nvxScene_api& scene, const char* name, const std::vector<double>& values);
