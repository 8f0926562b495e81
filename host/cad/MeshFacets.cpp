#include "host/cad/MeshFacets.h"

#include <RWStl.hxx>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace host::cad {

namespace {

std::array<double, 3> facetNormal(const std::array<std::array<double, 3>, 3>& p) {
    const double u[3] = {p[1][0] - p[0][0], p[1][1] - p[0][1], p[1][2] - p[0][2]};
    const double v[3] = {p[2][0] - p[0][0], p[2][1] - p[0][1], p[2][2] - p[0][2]};
    std::array<double, 3> n{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    if (length == 0.0) return {0.0, 0.0, 0.0};
    return {n[0] / length, n[1] / length, n[2] / length};
}

}  // namespace

void appendFacets(const Poly_Triangulation& mesh, const gp_Trsf& placement, bool reversed, std::vector<Facet>& facets) {
    facets.reserve(facets.size() + mesh.NbTriangles());
    for (int t = 1; t <= mesh.NbTriangles(); ++t) {
        int corners[3];
        mesh.Triangle(t).Get(corners[0], corners[1], corners[2]);
        if (reversed) std::swap(corners[1], corners[2]);
        Facet facet;
        for (int k = 0; k < 3; ++k) {
            const gp_Pnt point = mesh.Node(corners[k]).Transformed(placement);
            facet.points[k] = {point.X(), point.Y(), point.Z()};
        }
        facet.normal = facetNormal(facet.points);
        facets.push_back(facet);
    }
}

std::vector<Facet> readStlFacets(const std::string& path) {
    std::vector<Facet> facets;
    Handle(Poly_Triangulation) mesh = RWStl::ReadFile(path.c_str());
    if (!mesh.IsNull()) appendFacets(*mesh, gp_Trsf(), false, facets);
    return facets;
}

bool namesMeshFile(const std::string& partName) {
    const std::string suffix = ".stl";
    if (partName.size() <= suffix.size()) return false;
    return std::equal(suffix.rbegin(), suffix.rend(), partName.rbegin(),
                      [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

}  // namespace host::cad
