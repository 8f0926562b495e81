#pragma once
// Triangle meshes of a model's faces at a given chord height, the largest
// distance allowed between a face and its triangles.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/cad/CadModel.h"

namespace host::cad {

struct FaceTessellation {
    std::vector<double> vertices;  // x, y, z of each vertex, in the part's coordinates
    std::vector<double> normals;   // unit normal of each vertex, pointing out of the face as it is used
    std::vector<double> uvs;       // u, v surface parameters of each vertex
    std::vector<int> triangles;    // three 0-based vertex indices a triangle, counter-clockwise seen from outside

    std::size_t vertexCount() const { return vertices.size() / 3; }
    std::size_t triangleCount() const { return triangles.size() / 3; }
};

struct TessellationResult {
    std::shared_ptr<const FaceTessellation> mesh;  // null when the face could not be meshed
    std::string failure;                           // why, when there is no mesh

    bool ok() const { return mesh != nullptr; }
};

// Meshes one face of `model`. Answers are kept per face and chord height, so
// asking again, or for another occurrence of the same part, costs nothing;
// another chord height meshes afresh. A chord height that is not positive, or
// too fine for the face's size to mesh in reasonable time, is a failure.
TessellationResult tessellateFace(const CadModel& model, const CadFace& face, double chordHeight);

// Meshes every part of `model` at the share of its size that `chordHeight`
// is of part `partIndex`'s size, all parts side by side, and keeps the meshes
// as tessellateFace does. For a job that meshes the whole model anyway.
void meshModelAhead(const CadModel& model, int partIndex, double chordHeight);

// Chord heights below this share of a face's size are refused.
inline constexpr double finestRelativeChordHeight = 1e-5;

}  // namespace host::cad
