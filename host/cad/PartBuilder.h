#pragma once
// Turns one part's shape into its description: ids for its faces, edges and
// quilts, the facets of its mesh-only faces, the appearances of its faces and
// its outline. The exact faces and edges go into the model's shapes.
#include <TopoDS_Shape.hxx>

#include <optional>
#include <string>
#include <vector>

#include "host/cad/CadModel.h"

namespace host::cad {

class CadShapes;

// A piece of a part that the file gives an appearance of its own: a face, or
// a shell, solid or compound whose faces all take it unless they have theirs.
struct SubShapeAppearance {
    TopoDS_Shape shape;
    CadAppearance appearance;
};

// Ids are positive and follow one fixed order, so that loading the same file
// again gives the same ids: faces first, in the order in which a walk of the
// shape meets them, then edges (degenerate ones left out), then quilts, then
// the edges that only the faces' contours use (degenerate edges and the
// second uses of seams). A
// part made only of meshes takes the appearance of its first mesh when it has
// none of its own, since its facets can carry only one.
CadPart buildPart(const std::string& name, const TopoDS_Shape& shape, std::optional<CadAppearance> appearance,
                  const std::vector<SubShapeAppearance>& pieces, CadShapes& shapes);

// A part of facets only.
CadPart buildFacetPart(const std::string& name, std::vector<Facet> facets);

}  // namespace host::cad
