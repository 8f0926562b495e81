#pragma once
// Consistency checks and a head count over a read scene.
#include <cstddef>
#include <string>
#include <vector>

#include "scenereader/SceneDocument.h"

namespace scenereader {

// The problems found, one sentence each, empty for a sound scene. For every
// "triangles" geometry: "vertices" present as float triples; "triangles" an
// integer array of whole triples whose indices lie in [0, vertex count);
// "normals", if present, one per vertex; "uv_tex", if present, two floats per
// vertex; no value that is not a finite number in those arrays. Every
// "nurbs" geometry: its knots, control net, weights and trim curves (see
// NurbsChecks.h). For every animation block, the checks of
// SceneAnimations.h. Anywhere: no number written as "nan" or "inf".
std::vector<std::string> checkScene(const Document& document);

// What is worth a look without being wrong: trim control points outside
// their surface's domain.
std::vector<std::string> sceneWarnings(const Document& document);

struct SceneSummary {
    size_t groups = 0;
    size_t objects = 0;
    size_t triangleMeshes = 0;  // "triangles" geometries
    size_t triangles = 0;       // triangles in all of them
    size_t materials = 0;       // material blocks
    size_t distinctMaterials = 0;  // material blocks of different names
    size_t cameras = 0;
    size_t nurbsObjects = 0;    // "nurbs" geometries
    size_t animations = 0;      // animation blocks
};

SceneSummary summarize(const Document& document);

// "2 groups, 3 objects, 3 triangle meshes with 120 triangles, 4 materials (3
// distinct), ...", and the animation blocks at the end if there are any.
std::string describeSummary(const SceneSummary& summary);

// The tree of groups, objects, meshes, materials and cameras, a line each,
// indented two spaces a level: 'group "asm"', 'object "a"', "mesh: 12
// triangles", "NURBS", 'material "m"', 'camera "v"'.
std::string describeTree(const Document& document);

}  // namespace scenereader
