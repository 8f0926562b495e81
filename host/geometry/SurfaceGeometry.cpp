#include "host/geometry/SurfaceGeometry.h"

#include <algorithm>

namespace host {

void copyMesh(const SurfaceMesh& from, SurfaceMesh& to) {
    to.vertices.assign(from.vertices.begin(), from.vertices.end());
    to.normals.assign(from.normals.begin(), from.normals.end());
    to.parameters.assign(from.parameters.begin(), from.parameters.end());
    to.triangles.assign(from.triangles.begin(), from.triangles.end());
    to.hasVertices = from.hasVertices;
    to.hasNormals = from.hasNormals;
    to.hasParameters = from.hasParameters;
    to.hasTriangles = from.hasTriangles;
}

void extendByPoints(std::span<const Point3> points, Point3& low, Point3& high) {
    for (const Point3& point : points) {
        for (size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], point[axis]);
            high[axis] = std::max(high[axis], point[axis]);
        }
    }
}

}  // namespace host
