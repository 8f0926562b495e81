#pragma once
// The exact shape of one surface in a "nurbs" geometry block: the domain,
// the orders, both knot vectors and the weighted control net with U running
// fastest.
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "importers/sceneapi/nvxScene_api.h"
#include "toolkit/ProToolkit.h"

struct NurbsSurfaceLayout {
    double umin = 0.0;
    double umax = 0.0;
    double vmin = 0.0;
    double vmax = 0.0;
    int uorder = 0;
    int vorder = 0;
    std::vector<double> uknots;
    std::vector<double> vknots;
    std::vector<double> pw;  // x, y, z, w of each control point, V outer, U inner
};

// Lays out a B-spline surface as the host gives it: control points with U as
// the outer index, weights null for an unweighted surface (w = 1). The domain
// is the U knot at `degreeU` to the one at knot count - `degreeU` - 1, and
// likewise for V. None if the counts don't make a control net of the points
// given.
std::optional<NurbsSurfaceLayout> layoutNurbsSurface(int degreeU, int degreeV, std::span<const double> knotsU,
                                                     std::span<const double> knotsV, const double* weights,
                                                     std::span<const Pro3dPnt> points);

// "umin", "umax", "vmin", "vmax", "uorder", "vorder", "uknot", "vknot", "Pw".
void writeNurbsSurface(nvxScene_api& scene, const NurbsSurfaceLayout& layout);

// Reads the exact surface's B-spline from the host and writes it; a surface
// that is no B-spline writes nothing.
void emitNurbsSurface(nvxScene_api& scene, ProSurfacedata surface);
