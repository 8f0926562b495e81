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

// Visits the solid's surfaces, its quilts' surfaces and its facet sets'
// facets, in that order, through the visibility filters.
SolidGeometry collectSolidGeometry(ProSolid solid);

// The actions of those visits; `data` is the SolidGeometry being filled.
ProError collectSurface(ProSurface surface, ProError status, ProAppData data);
ProError collectQuiltSurfaces(ProQuilt quilt, ProError status, ProAppData data);
ProError collectFacetsetFacets(ProFacetset facetset, ProError status, ProAppData data);
ProError collectFacet(ProFacet facet, ProError status, ProAppData data);
