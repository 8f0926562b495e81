#pragma once
// Facets of triangle meshes that have no exact surface: the triangulation of a
// mesh-only face, and the triangles of an STL file.
#include <Poly_Triangulation.hxx>
#include <gp_Trsf.hxx>

#include <string>
#include <vector>

#include "host/cad/CadModel.h"

namespace host::cad {

// Appends one facet a triangle, placed by `placement`. A reversed mesh has its
// corners taken in the other order. Each normal follows the corners'
// counter-clockwise order; a degenerate triangle gets a zero normal.
void appendFacets(const Poly_Triangulation& mesh, const gp_Trsf& placement, bool reversed, std::vector<Facet>& facets);

enum class StlKind { Empty, Ascii, Binary };

// What an STL file holds, from its first bytes and its size, before the
// kernel reads it: a binary STL must be exactly as long as its triangle
// count says. Throws CadLoadError for a file that is neither, at once and
// without reading it whole.
StlKind stlKindOf(const std::string& path);

// The triangles of an STL file, ASCII or binary; none for an empty file.
// Throws CadLoadError for a file that isn't STL or that the kernel can't read.
std::vector<Facet> readStlFacets(const std::string& path);

// A part that has no shape of its own and is named after a mesh file
// ("propeller.stl") takes its facets from that file beside the model. This is
// how a STEP file refers to a mesh, which it can't carry itself.
bool namesMeshFile(const std::string& partName);

}  // namespace host::cad
