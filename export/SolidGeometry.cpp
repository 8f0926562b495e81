#include "export/SolidGeometry.h"

#include "export/VisibilityFilters.h"
#include "toolkit/HostCallback.h"

namespace {

ProError acceptFacetset(ProFacetset, ProAppData) { return PRO_TK_NO_ERROR; }
ProError acceptFacet(ProFacet, ProAppData) { return PRO_TK_NO_ERROR; }

}  // namespace

ProError collectSurface(ProSurface surface, ProError, ProAppData data) {
    return toolkit::guardVisit([&] {
        auto* geometry = static_cast<SolidGeometry*>(data);
        int id = 0;
        ProSurfaceIdGet(surface, &id);
        geometry->surfaces.push_back(surface);
        geometry->surfaceIds.insert(id);
        return PRO_TK_NO_ERROR;
    });
}

ProError collectQuiltSurfaces(ProQuilt quilt, ProError, ProAppData data) {
    return toolkit::guardVisit([&] {
        ProQuiltSurfaceVisit(quilt, collectSurface, filterSurface, data);
        toolkit::rethrowVisitFailure();
        return PRO_TK_NO_ERROR;
    });
}

ProError collectFacet(ProFacet facet, ProError, ProAppData data) {
    return toolkit::guardVisit([&] {
        static_cast<SolidGeometry*>(data)->facets.push_back(facet);
        return PRO_TK_NO_ERROR;
    });
}

ProError collectFacetsetFacets(ProFacetset facetset, ProError, ProAppData data) {
    return toolkit::guardVisit([&] {
        ProFacetsetFacetVisit(facetset, collectFacet, acceptFacet, data);
        toolkit::rethrowVisitFailure();
        return PRO_TK_NO_ERROR;
    });
}

SolidGeometry collectSolidGeometry(ProSolid solid) {
    SolidGeometry geometry;
    geometry.solid = solid;
    ProSolidSurfaceVisit(solid, collectSurface, filterSurface, &geometry);
    toolkit::rethrowVisitFailure();
    ProSolidQuiltVisit(solid, collectQuiltSurfaces, filterQuilt, &geometry);
    toolkit::rethrowVisitFailure();
    ProSolidFacetsetVisit(solid, collectFacetsetFacets, acceptFacetset, &geometry);
    toolkit::rethrowVisitFailure();
    return geometry;
}
