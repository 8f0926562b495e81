#pragma once
// Surfaces given by a formula and meshed to the chord height asked for, as
// the host meshes real faces: a flat rectangle, and a patch of a cylinder
// about the z axis. They make meshes of any size for benchmarks.
#include "host/geometry/SurfaceGeometry.h"

namespace host {

class ParametricSurface : public SurfaceGeometry {
public:
    // The rectangle from `origin` spanned by the edges `u` and `v`, as a grid
    // of `cells` by `cells`. Any mesh of a flat face meets every chord
    // height, so the grid is fixed.
    static ParametricSurface rectangle(Point3 origin, Point3 u, Point3 v, int cells = 1);
    // The part of the cylinder of `radius` about the z axis from angle 0 to
    // `sweep` (radians) and from z = 0 to `height`. The arc is cut into
    // segments whose chord stays within the chord height; the height into
    // rows about as tall as a segment is wide.
    static ParametricSurface cylinder(double radius, double height, double sweep);

    TessellationOutcome tessellate(double chordHeight, SurfaceMesh& mesh) const override;
    void extend(Point3& low, Point3& high) const override;

    // The most segments or rows in one direction, whatever the chord height.
    static constexpr int maximumDivisions = 4096;

private:
    enum class Shape { Rectangle, Cylinder };
    ParametricSurface() = default;
    Point3 pointAt(double s, double t) const;
    Point3 normalAt(double s) const;
    Point2 parameterAt(double s, double t) const;

    Shape shape_ = Shape::Rectangle;
    Point3 origin_{};
    Point3 u_{};
    Point3 v_{};
    int cells_ = 1;
    double radius_ = 0.0;
    double height_ = 0.0;
    double sweep_ = 0.0;
};

}  // namespace host
