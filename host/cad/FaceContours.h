#pragma once
// The contours of a part's faces by edge ids: each face's wires, the outer
// one first, with the edges in the order the wire runs and the direction of
// each use. Degenerate edges (at a cone's apex, a sphere's pole) get ids of
// their own, and so does the second use of a seam in a periodic face, so
// that each use of an edge in a face has its own curve in the face's
// parameters.
#include "host/cad/CadModel.h"

namespace host::cad {

class CadShapes;

// Fills the contours of every face and adds the edges they need, with ids
// after the largest of the part.
void addFaceContours(CadPart& part, CadShapes& shapes);

}  // namespace host::cad
