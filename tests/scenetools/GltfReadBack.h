#pragma once
// A glTF file read back with the kernel's glTF reader into an XDE document,
// flattened for assertions: the node tree as indented names, and each mesh
// with its world positions and its material's base colour.
#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace scenetools::testing {

struct ReadMesh {
    std::string path;  // the names from the top, joined by "/"
    size_t triangles = 0;
    std::vector<std::array<double, 3>> positions;  // world, in file order
    std::array<double, 3> baseColour{-1, -1, -1};  // -1 without a material
    bool textured = false;
};

struct ReadGltf {
    std::string tree;              // a line each node, two spaces a level
    std::vector<ReadMesh> meshes;  // depth first, in file order
};

// Fails the calling test (and answers an empty result) if the file can't be read.
ReadGltf readGltf(const std::filesystem::path& file);

}  // namespace scenetools::testing
