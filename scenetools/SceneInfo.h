#pragma once
// The text of "vantrel-scene info": what a scene holds, and its tree.
#include <cstdint>
#include <string>

#include "scenereader/SceneDocument.h"
#include "scenetools/SceneModel.h"

namespace scenetools {

// A group's flags in words: "part" (1024), "assembly" (32768), "exact
// surfaces" (65536), any other bit in hexadecimal; joined by ", ".
std::string describeFlags(uint32_t flags);

// The head count of the reader's summary, then the exact surfaces, the
// materials, the cameras, the animation blocks, the metre scale, the up
// axis and the bounding box in metres with +Y up, a line each.
std::string describeScene(const scenereader::Document& document, const Scene& scene);

// The groups with their flags in words, their objects with triangle counts
// and materials, their exact surfaces and animation blocks, indented two
// spaces a level; then the cameras.
std::string describeSceneTree(const Scene& scene);

}  // namespace scenetools
