#include "export/NurbsSurfaces.h"

std::optional<NurbsSurfaceLayout> layoutNurbsSurface(int degreeU, int degreeV, std::span<const double> knotsU,
                                                     std::span<const double> knotsV, const double* weights,
                                                     std::span<const Pro3dPnt> points) {
    const long countU = static_cast<long>(knotsU.size()) - degreeU - 1;
    const long countV = static_cast<long>(knotsV.size()) - degreeV - 1;
    if (degreeU < 0 || degreeV < 0 || countU <= 0 || countV <= 0) return std::nullopt;
    if (static_cast<long>(points.size()) < countU * countV) return std::nullopt;
    NurbsSurfaceLayout layout;
    layout.umin = knotsU[static_cast<size_t>(degreeU)];
    layout.umax = knotsU[static_cast<size_t>(countU)];
    layout.vmin = knotsV[static_cast<size_t>(degreeV)];
    layout.vmax = knotsV[static_cast<size_t>(countV)];
    layout.uorder = degreeU + 1;
    layout.vorder = degreeV + 1;
    layout.uknots.assign(knotsU.begin(), knotsU.end());
    layout.vknots.assign(knotsV.begin(), knotsV.end());
    layout.pw.reserve(static_cast<size_t>(countU * countV * 4));
    for (long v = 0; v < countV; ++v) {
        for (long u = 0; u < countU; ++u) {
            const size_t i = static_cast<size_t>(u * countV + v);
            layout.pw.insert(layout.pw.end(), points[i], points[i] + 3);
            layout.pw.push_back(weights ? weights[i] : 1.0);
        }
    }
    return layout;
}

namespace {

void setArray(nvxScene_api& scene, const char* name, const std::vector<double>& values) {
    ArrayRecord array{values.data(), values.size()};
    scene.set_attribute(name, ATTR_ARRAY | ATTR_DOUBLE, &array);
}

}  // namespace

void writeNurbsSurface(nvxScene_api& scene, const NurbsSurfaceLayout& layout) {
    scene.set_attribute("umin", ATTR_DOUBLE, &layout.umin);
    scene.set_attribute("umax", ATTR_DOUBLE, &layout.umax);
    scene.set_attribute("vmin", ATTR_DOUBLE, &layout.vmin);
    scene.set_attribute("vmax", ATTR_DOUBLE, &layout.vmax);
    scene.set_attribute("uorder", ATTR_INT, &layout.uorder);
    scene.set_attribute("vorder", ATTR_INT, &layout.vorder);
    setArray(scene, "uknot", layout.uknots);
    setArray(scene, "vknot", layout.vknots);
    setArray(scene, "Pw", layout.pw);
}

void emitNurbsSurface(nvxScene_api& scene, ProSurfacedata surface) {
    int type = 0, id = 0;
    ProSurfaceshapedata shape = nullptr;
    ProSurfacedataGet(surface, &type, &shape, &id);
    int degrees[2] = {0, 0};
    double* knotsU = nullptr;
    double* knotsV = nullptr;
    double* weights = nullptr;
    Pro3dPnt* points = nullptr;
    int knotCountU = 0, knotCountV = 0, pointCount = 0;
    if (ProBsplinesrfdataGet(shape, degrees, &knotsU, &knotsV, &weights, &points, &knotCountU, &knotCountV,
                             &pointCount) != PRO_TK_NO_ERROR)
        return;
    if (!knotsU || !knotsV || !points) return;
    auto layout = layoutNurbsSurface(
        degrees[0], degrees[1], {knotsU, static_cast<size_t>(knotCountU)}, {knotsV, static_cast<size_t>(knotCountV)},
        weights, {points, static_cast<size_t>(pointCount)});
    if (layout) writeNurbsSurface(scene, *layout);
}
