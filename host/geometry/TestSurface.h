#pragma once
// A hand-built surface for tests: its mesh is given outright, any of the four
// arrays may be missing, and it can be made to refuse chord heights above or
// below a limit, or to answer no tessellation at all.
#include <limits>
#include <utility>

#include "host/geometry/SurfaceGeometry.h"

namespace host {

class TestSurface : public SurfaceGeometry {
public:
    explicit TestSurface(SurfaceMesh mesh) : mesh_(std::move(mesh)) {}

    // A unit square at `corner` in the plane z = corner z: 4 vertices, normals
    // along +z, parameters 0 to 1 and 2 triangles.
    static SurfaceMesh unitSquare(Point3 corner = {0.0, 0.0, 0.0});

    // Chord heights greater than `limit` are refused (too coarse for it).
    TestSurface& failAbove(double limit) {
        failAbove_ = limit;
        return *this;
    }
    // Chord heights less than `limit` are refused (too fine for it).
    TestSurface& failBelow(double limit) {
        failBelow_ = limit;
        return *this;
    }
    // Every request answers success without a tessellation.
    TestSurface& answerNullHandle() {
        nullHandle_ = true;
        return *this;
    }

    TessellationOutcome tessellate(double chordHeight, SurfaceMesh& mesh) const override;
    void extend(Point3& low, Point3& high) const override;
    const SurfaceMesh& mesh() const { return mesh_; }

private:
    SurfaceMesh mesh_;
    double failAbove_ = std::numeric_limits<double>::infinity();
    double failBelow_ = -std::numeric_limits<double>::infinity();
    bool nullHandle_ = false;
};

}  // namespace host
