#pragma once
// Checks of the exact surfaces of a read scene: each "nurbs" geometry's knot
// vectors, control net and weights, and its trim curves.
#include <string>
#include <vector>

#include "scenereader/SceneDocument.h"

namespace scenereader {

struct NurbsFindings {
    std::vector<std::string> problems;  // the scene is unsound
    std::vector<std::string> warnings;  // worth a look, not wrong
};

// One "nurbs" geometry, named by `where` in the messages. Problems: orders
// below 1; knot vectors that decrease or whose length isn't order plus the
// control count; "Pw" not four numbers for each of the U x V control points;
// weights that are not positive; trim arrays whose counts disagree; trim
// curves whose knots decrease; contours that don't close in the surface's
// parameters (each curve's end meets the next one's start, taking the
// curves in their order or all in the reverse order, within 1e-6 of the
// domain's size). Warnings: trim control points outside the domain by more
// than 1 % of its size.
void checkNurbsGeometry(const Block& geometry, const std::string& where, NurbsFindings& findings);

// A group that holds "nurbs" objects beside a "triangles" object: sampled
// vertices of the mesh must lie on the union of the group's exact surfaces,
// within 2 % of the mesh's size (the surfaces are sampled on a grid, so the
// check is coarse). A problem names the farthest vertex.
void checkMeshOnSurfaces(const Block& group, const std::string& where, NurbsFindings& findings);

}  // namespace scenereader
