#include "host/geometry/ParametricSurface.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {
namespace {

Point3 cross(const Point3& a, const Point3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Point3 normalized(const Point3& a) {
    double length = std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]);
    if (length == 0.0) return a;
    return {a[0] / length, a[1] / length, a[2] / length};
}

int divisions(double count) {
    if (!(count >= 1.0)) return 1;
    return static_cast<int>(std::min(std::ceil(count), double(ParametricSurface::maximumDivisions)));
}

}  // namespace

ParametricSurface ParametricSurface::rectangle(Point3 origin, Point3 u, Point3 v, int cells) {
    ParametricSurface surface;
    surface.shape_ = Shape::Rectangle;
    surface.origin_ = origin;
    surface.u_ = u;
    surface.v_ = v;
    surface.cells_ = std::clamp(cells, 1, maximumDivisions);
    return surface;
}

ParametricSurface ParametricSurface::cylinder(double radius, double height, double sweep) {
    ParametricSurface surface;
    surface.shape_ = Shape::Cylinder;
    surface.radius_ = radius;
    surface.height_ = height;
    surface.sweep_ = sweep;
    return surface;
}

Point3 ParametricSurface::pointAt(double s, double t) const {
    if (shape_ == Shape::Rectangle) {
        return {origin_[0] + s * u_[0] + t * v_[0], origin_[1] + s * u_[1] + t * v_[1],
                origin_[2] + s * u_[2] + t * v_[2]};
    }
    double angle = s * sweep_;
    return {radius_ * std::cos(angle), radius_ * std::sin(angle), t * height_};
}

Point3 ParametricSurface::normalAt(double s) const {
    if (shape_ == Shape::Rectangle) return normalized(cross(u_, v_));
    double angle = s * sweep_;
    return {std::cos(angle), std::sin(angle), 0.0};
}

Point2 ParametricSurface::parameterAt(double s, double t) const {
    if (shape_ == Shape::Rectangle) return {s, t};
    return {s * sweep_, t * height_};
}

TessellationOutcome ParametricSurface::tessellate(double chordHeight, SurfaceMesh& mesh) const {
    int columns = cells_;
    int rows = cells_;
    if (shape_ == Shape::Cylinder) {
        // A segment of angle a leaves the arc at most r (1 - cos(a / 2)) away.
        double ratio = chordHeight > 0.0 ? std::min(chordHeight / radius_, 1.0) : 0.0;
        double segmentAngle = 2.0 * std::acos(1.0 - ratio);
        columns = segmentAngle > 0.0 ? divisions(std::abs(sweep_) / segmentAngle) : maximumDivisions;
        double segmentWidth = radius_ * std::abs(sweep_) / columns;
        rows = segmentWidth > 0.0 ? divisions(std::abs(height_) / segmentWidth) : 1;
    }
    size_t vertexCount = size_t(columns + 1) * size_t(rows + 1);
    mesh.vertices.clear();
    mesh.normals.clear();
    mesh.parameters.clear();
    mesh.triangles.clear();
    mesh.vertices.reserve(vertexCount);
    mesh.normals.reserve(vertexCount);
    mesh.parameters.reserve(vertexCount);
    mesh.triangles.reserve(size_t(columns) * size_t(rows) * 2);
    for (int row = 0; row <= rows; ++row) {
        double t = double(row) / rows;
        for (int column = 0; column <= columns; ++column) {
            double s = double(column) / columns;
            mesh.vertices.push_back(pointAt(s, t));
            mesh.normals.push_back(normalAt(s));
            mesh.parameters.push_back(parameterAt(s, t));
        }
    }
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            int first = row * (columns + 1) + column;
            int above = first + columns + 1;
            mesh.triangles.push_back({first, first + 1, above + 1});
            mesh.triangles.push_back({first, above + 1, above});
        }
    }
    mesh.hasVertices = mesh.hasNormals = mesh.hasParameters = mesh.hasTriangles = true;
    return TessellationOutcome::Done;
}

void ParametricSurface::extend(Point3& low, Point3& high) const {
    std::vector<Point3> corners;
    for (double t : {0.0, 1.0}) {
        corners.push_back(pointAt(0.0, t));
        corners.push_back(pointAt(1.0, t));
        // Where the arc crosses an axis it reaches past its ends.
        if (shape_ == Shape::Cylinder && sweep_ != 0.0) {
            for (int quarter = -8; quarter <= 8; ++quarter) {
                double s = quarter * (std::numbers::pi / 2.0) / sweep_;
                if (s > 0.0 && s < 1.0) corners.push_back(pointAt(s, t));
            }
        }
    }
    extendByPoints(corners, low, high);
}

}  // namespace host
