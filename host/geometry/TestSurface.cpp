#include "host/geometry/TestSurface.h"

namespace host {

SurfaceMesh TestSurface::unitSquare(Point3 corner) {
    auto [x, y, z] = corner;
    SurfaceMesh mesh;
    mesh.vertices = {{x, y, z}, {x + 1, y, z}, {x + 1, y + 1, z}, {x, y + 1, z}};
    mesh.normals.assign(4, {0.0, 0.0, 1.0});
    mesh.parameters = {{0.0, 0.0}, {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}};
    mesh.triangles = {{0, 1, 2}, {0, 2, 3}};
    return mesh;
}

TessellationOutcome TestSurface::tessellate(double chordHeight, SurfaceMesh& mesh) const {
    if (chordHeight > failAbove_ || chordHeight < failBelow_) return TessellationOutcome::Failed;
    if (nullHandle_) return TessellationOutcome::NullHandle;
    copyMesh(mesh_, mesh);
    return TessellationOutcome::Done;
}

void TestSurface::extend(Point3& low, Point3& high) const { extendByPoints(mesh_.vertices, low, high); }

}  // namespace host
