#pragma once
// Faceted geometry without surfaces (imported meshes): one flat-shaded mesh
// with one material, in a group of its own.
#include <string>

#include "export/SolidGeometry.h"

class VantrelPlugin;

// Visits the solid's facet sets and appends every facet to geometry.facets.
void collectFacets(ProSolid solid, SolidGeometry& geometry);

// The actions of the facet-set visit and of the facet visit inside it.
ProError collectFacetsetFacets(ProFacetset facetset, ProError status, ProAppData data);
ProError collectFacet(ProFacet facet, ProError status, ProAppData data);

void exportFacets(VantrelPlugin& plugin, const SolidGeometry& geometry, const ProAsmcomppath& fullPath,
                  const ProAsmcomppath& localPath, const std::string& name, const ProMatrix matrix,
                  bool emitGeometry);
