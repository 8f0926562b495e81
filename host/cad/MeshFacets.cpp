#include "host/cad/MeshFacets.h"

#include <RWStl.hxx>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

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

StlKind stlKindOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw CadLoadError("cannot read STL file '" + path + "'");
    char head[512] = {};
    file.read(head, sizeof head);
    const std::uintmax_t size = static_cast<std::uintmax_t>(file.gcount()) < sizeof head
                                    ? static_cast<std::uintmax_t>(file.gcount())
                                    : std::filesystem::file_size(path);
    if (size == 0) return StlKind::Empty;
    if (size >= 84) {
        unsigned char count[4];
        std::memcpy(count, head + 80, 4);
        const std::uintmax_t triangles = count[0] | count[1] << 8 | count[2] << 16 | std::uintmax_t(count[3]) << 24;
        if (size == 84 + 50 * triangles) return StlKind::Binary;
    }
    // Text: "solid" first, and nothing but printable characters and white space at the start.
    const std::string_view start(head, static_cast<size_t>(std::min<std::uintmax_t>(size, sizeof head)));
    const size_t first = start.find_first_not_of(" \t\r\n");
    const bool text = std::all_of(start.begin(), start.end(), [](char c) {
        return std::isprint(static_cast<unsigned char>(c)) || std::isspace(static_cast<unsigned char>(c));
    });
    if (text && first != std::string_view::npos && start.substr(first, 5) == "solid") return StlKind::Ascii;
    throw CadLoadError("'" + path + "' is no STL file: not text, and as a binary STL its " + std::to_string(size) +
                       " bytes don't hold the triangle count it gives");
}

std::vector<Facet> readStlFacets(const std::string& path) {
    std::vector<Facet> facets;
    if (stlKindOf(path) == StlKind::Empty) return facets;
    Handle(Poly_Triangulation) mesh = RWStl::ReadFile(path.c_str());
    if (mesh.IsNull()) throw CadLoadError("cannot read STL file '" + path + "'");
    appendFacets(*mesh, gp_Trsf(), false, facets);
    return facets;
}

bool namesMeshFile(const std::string& partName) {
    const std::string suffix = ".stl";
    if (partName.size() <= suffix.size()) return false;
    return std::equal(suffix.rbegin(), suffix.rend(), partName.rbegin(),
                      [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

}  // namespace host::cad
