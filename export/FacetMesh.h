#pragma once
// Facets as a mesh: each facet adds three vertices of its own, all with the
// facet's normal, so the mesh is flat-shaded.
#include <vector>

#include "export/ScratchArrays.h"
#include "toolkit/ProToolkit.h"

// Appends the facets to the mesh buffers, indices counting from 0.
void appendFacetMesh(const std::vector<ProFacet>& facets, ScratchArrays& buffers);
