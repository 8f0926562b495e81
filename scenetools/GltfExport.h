#pragma once
// "vantrel-scene to-gltf": the scene as glTF 2.0, binary (.glb) or JSON with
// a side file (.gltf), written by the kernel's glTF writer from the XDE
// document of the scene, in metres with +Y up. The scene's cameras are added
// to the written JSON as glTF cameras, each framing the whole model from its
// own direction as the importer's camera adjustment does, and the animation
// blocks as glTF animations.
#include <filesystem>
#include <string>

#include "scenetools/SceneModel.h"

namespace scenetools {

struct GltfCounts {
    size_t nodes = 0;
    size_t meshes = 0;
    size_t materials = 0;
    size_t cameras = 0;
    size_t animations = 0;
};

// Throws std::runtime_error when the file can't be written.
GltfCounts writeGltf(const Scene& scene, const std::filesystem::path& sceneFolder, const std::filesystem::path& output);

// The note that the output's asset "extras" carries when exact surfaces were
// left out, or empty when there were none.
std::string exactSurfacesNote(const Scene& scene);

}  // namespace scenetools
