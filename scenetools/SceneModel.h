#pragma once
// A read scene seen as what a viewer shows: the tree of groups with their
// transforms, the triangle meshes of the objects with their materials, the
// cameras, and the importer's metre scale and up axis. The tools (info,
// glTF, preview) all work from this one model.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "scenereader/SceneDocument.h"

namespace scenetools {

// 4 rows of 4, points are row vectors, the translation in row 3 (12..14).
using Matrix = std::array<double, 16>;
inline constexpr Matrix identityMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// a * b: first a, then b, for row vectors.
Matrix multiply(const Matrix& a, const Matrix& b);
std::array<double, 3> transformPoint(const Matrix& m, const std::array<double, 3>& p);

struct Material {
    std::string name;
    std::array<float, 3> diffuse{0.8f, 0.8f, 0.8f};
    std::string texture;  // the image path as the scene gives it, empty for none
};

// One "triangles" object.
struct Mesh {
    std::string name;              // the object's name
    std::vector<float> vertices;   // x y z
    std::vector<float> normals;    // x y z per vertex, or empty
    std::vector<float> uvs;        // u v per vertex, or empty
    std::vector<int32_t> indices;  // three per triangle
    Material material;

    size_t vertexCount() const { return vertices.size() / 3; }
    size_t triangleCount() const { return indices.size() / 3; }
    // Has triangles, and every index is a vertex: the viewers take it.
    bool drawable() const;
};

struct Camera {
    std::string name;
    std::array<double, 3> position{0, 0, 0};
    std::array<double, 3> direction{0, 0, -1};
    std::array<double, 3> up{0, 1, 0};
    bool orthographic = false;
    double fieldOfView = 55;            // degrees
    Matrix transform = identityMatrix;  // its own "transform"
    Matrix world = identityMatrix;      // its transform and those of the groups around it
};

// An animation block of a group: the matrices that, put before the group's
// own transform, place it at each frame, and the frames' times in
// milliseconds.
struct Track {
    std::string name;
    std::vector<Matrix> matrices;
    std::vector<int32_t> timestamps;
};

struct Node {
    std::string name;
    bool hasFlags = false;
    uint32_t flags = 0;
    Matrix transform = identityMatrix;  // relative to the parent group
    std::vector<Mesh> meshes;           // its "triangles" objects, in file order
    std::vector<Node> children;         // its groups, in file order
    size_t exactSurfaces = 0;           // "nurbs" objects directly in it
    size_t animations = 0;              // animation blocks directly in it
    std::vector<Track> tracks;          // those of them that read whole
};

struct Scene {
    double meterScale = 1.0;  // model units in one metre
    int upAxis = 1;           // the importer's code: 0 x, 1 y, 2 z, 3 -x, 4 -y, 5 -z
    Node root;                // the top level: its children are the scene's top groups
    std::vector<Camera> cameras;
    size_t exactSurfaces = 0;  // "nurbs" objects anywhere
    size_t animations = 0;     // animation blocks anywhere
};

// Reads what it knows of the document and passes over the rest: a geometry
// other than "triangles" counts only as an exact surface ("nurbs") or not at
// all; a mesh array of a wrong shape makes the mesh empty (the check reports
// those).
Scene buildScene(const scenereader::Document& document);

}  // namespace scenetools

namespace scenetools {

// Calls `visit(mesh, world)` for every mesh, with the product of the
// transforms of the groups around it.
template <typename Visit>
void forEachMesh(const Node& node, const Matrix& parentWorld, Visit&& visit) {
    const Matrix world = multiply(node.transform, parentWorld);
    for (const Mesh& mesh : node.meshes) visit(mesh, world);
    for (const Node& child : node.children) forEachMesh(child, world, visit);
}

struct Bounds {
    bool empty = true;
    std::array<double, 3> min{0, 0, 0};
    std::array<double, 3> max{0, 0, 0};

    void add(const std::array<double, 3>& point);
};

// The box of all mesh vertices, each placed by its groups and then by `outer`.
Bounds meshBounds(const Scene& scene, const Matrix& outer);

}  // namespace scenetools
