#pragma once
// What the visits of one solid collect: surfaces that passed the filters,
// then the surfaces of accepted quilts, and the facets of its facet sets.
#include <set>
#include <vector>

#include "toolkit/ProToolkit.h"

struct SolidGeometry {
    std::vector<ProSurface> surfaces;
    std::vector<ProFacet> facets;
    std::set<int> surfaceIds;
    ProSolid solid = nullptr;
};
