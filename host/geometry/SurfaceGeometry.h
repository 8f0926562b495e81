#pragma once
// The shape of a surface as the host triangulates it: a provider answers the
// mesh of its surface at a chord height. Hand-built test surfaces and the
// faces of real models are providers.
#include <array>
#include <span>
#include <vector>

namespace host {

using Point3 = std::array<double, 3>;
using Point2 = std::array<double, 2>;
using Triangle = std::array<int, 3>;

// A triangulation as the host hands it out. An array that the surface can't
// give is marked missing, and the operation that fetches it then fails.
struct SurfaceMesh {
    std::vector<Point3> vertices;
    std::vector<Point3> normals;
    std::vector<Point2> parameters;
    std::vector<Triangle> triangles;
    bool hasVertices = true;
    bool hasNormals = true;
    bool hasParameters = true;
    bool hasTriangles = true;
};

enum class TessellationOutcome {
    Done,          // the mesh is filled
    Failed,        // the host refuses: a non-zero status
    NullHandle,    // the host answers success without a tessellation
};

class SurfaceGeometry {
public:
    virtual ~SurfaceGeometry() = default;
    virtual TessellationOutcome tessellate(double chordHeight, SurfaceMesh& mesh) const = 0;
    // The surface's extent, for the model's outline.
    virtual void extend(Point3& low, Point3& high) const = 0;
};

// Copies `from` into `to`, keeping the storage of `to`.
void copyMesh(const SurfaceMesh& from, SurfaceMesh& to);
// Grows the box low..high to hold every point.
void extendByPoints(std::span<const Point3> points, Point3& low, Point3& high);

}  // namespace host
