// The geometry of a solid: the visits of its surfaces, quilts and facets,
// their ids and geometry items, and the solid's outline.
#include <limits>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"
#include "host/ops/Visits.h"

namespace host {
namespace {

// The visit of the items held by a quilt or a facet set.
template <typename Handle, typename Owner, typename Item, typename OwnerHandle, typename Action, typename Filter>
ProError visitOfPart(OwnerHandle owner, std::vector<Item> Owner::*items, Action action, Filter filter,
                     ProAppData data) {
    if (!owner || !action) return PRO_TK_BAD_INPUTS;
    return ops::visitEach(ops::objectOf<Owner>(owner)->*items, ops::handleMaker<Handle>(), filter, action, data);
}

}  // namespace

ProError ops::ProSolidSurfaceVisit(Session& session, ProSolid solid, ProSurfaceVisitAction action,
                                   ProSurfaceFilterAction filter, ProAppData data) {
    return visitOfSolid(session, solid, &Model::surfaces, handleMaker<ProSurface>(), filter, action, data);
}

ProError ops::ProSolidQuiltVisit(Session& session, ProSolid solid, ProQuiltVisitAction action, ProQuiltFilterAction filter,
                                 ProAppData data) {
    return visitOfSolid(session, solid, &Model::quilts, handleMaker<ProQuilt>(), filter, action, data);
}

ProError ops::ProSolidFacetsetVisit(Session& session, ProSolid solid, ProFacetsetVisitAction action,
                                    ProFacetsetFilterAction filter, ProAppData data) {
    return visitOfSolid(session, solid, &Model::facetSets, handleMaker<ProFacetset>(), filter, action, data);
}

ProError ops::ProQuiltSurfaceVisit(Session&, ProQuilt quilt, ProSurfaceVisitAction action,
                                   ProSurfaceFilterAction filter, ProAppData data) {
    return visitOfPart<ProSurface>(quilt, &Quilt::surfaces, action, filter, data);
}

ProError ops::ProFacetsetFacetVisit(Session&, ProFacetset facetset, ProFacetVisitAction action,
                                    ProFacetFilterAction filter, ProAppData data) {
    return visitOfPart<ProFacet>(facetset, &FacetSet::facets, action, filter, data);
}

ProError ops::ProSurfaceIdGet(Session&, ProSurface surface, int* id) {
    if (!surface || !id) return PRO_TK_BAD_INPUTS;
    *id = objectOf<Surface>(surface)->id;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProQuiltIdGet(Session&, ProQuilt quilt, int* id) {
    if (!quilt || !id) return PRO_TK_BAD_INPUTS;
    *id = objectOf<Quilt>(quilt)->id;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSurfaceToGeomitem(Session& session, ProSolid solid, ProSurface surface, ProGeomitem* item) {
    if (!modelOf(session, solid) || !surface || !item) return PRO_TK_BAD_INPUTS;
    *item = ProGeomitem{PRO_ITEM_SURFACE, objectOf<Surface>(surface)->id, solid};
    return PRO_TK_NO_ERROR;
}

ProError ops::ProQuiltToGeomitem(Session& session, ProSolid solid, ProQuilt quilt, ProGeomitem* item) {
    if (!modelOf(session, solid) || !quilt || !item) return PRO_TK_BAD_INPUTS;
    *item = ProGeomitem{PRO_ITEM_QUILT, objectOf<Quilt>(quilt)->id, solid};
    return PRO_TK_NO_ERROR;
}

// The model's own outline if it has one, else the box around the extents of
// its surfaces (those of quilts too) and the points of its facets; a model
// with no geometry has both corners at the origin.
ProError ops::ProSolidOutlineGet(Session& session, ProSolid solid, Pro3dPnt outline[2]) {
    const Model* model = modelOf(session, solid);
    if (!model || !outline) return PRO_TK_BAD_INPUTS;
    std::array<Point3, 2> corners{};
    if (model->outline) {
        corners = *model->outline;
    } else {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        Point3 low{infinity, infinity, infinity}, high{-infinity, -infinity, -infinity};
        auto extendBy = [&](const std::vector<Surface>& surfaces) {
            for (const Surface& surface : surfaces) {
                if (surface.geometry) surface.geometry->extend(low, high);
            }
        };
        extendBy(model->surfaces);
        for (const Quilt& quilt : model->quilts) extendBy(quilt.surfaces);
        for (const FacetSet& set : model->facetSets) {
            for (const Facet& facet : set.facets) {
                extendByPoints(facet.points, low, high);
            }
        }
        if (low[0] <= high[0]) corners = {low, high};
    }
    for (size_t corner = 0; corner < 2; ++corner) {
        for (size_t axis = 0; axis < 3; ++axis) outline[corner][axis] = corners[corner][axis];
    }
    return PRO_TK_NO_ERROR;
}

// The facet's vertex handles point at its points; the block of three is the
// host's until ProFacetverticesFree.
ProError ops::ProFacetVerticesGet(Session& session, ProFacet facet, ProFacetVertex** vertices) {
    if (!facet || !vertices) return PRO_TK_BAD_INPUTS;
    const Facet& source = *objectOf<Facet>(facet);
    FacetVertices* block = session.handles().facetVertices.make();
    for (size_t corner = 0; corner < 3; ++corner) (*block)[corner] = handleOf<ProFacetVertex>(source.points[corner]);
    *vertices = block->data();
    return PRO_TK_NO_ERROR;
}

ProError ops::ProFacetNormalGet(Session&, ProFacet facet, ProVector normal) {
    if (!facet || !normal) return PRO_TK_BAD_INPUTS;
    const Point3& source = objectOf<Facet>(facet)->normal;
    for (size_t axis = 0; axis < 3; ++axis) normal[axis] = source[axis];
    return PRO_TK_NO_ERROR;
}

ProError ops::ProFacetvertexPointGet(Session&, ProFacetVertex vertex, Pro3dPnt point) {
    if (!vertex || !point) return PRO_TK_BAD_INPUTS;
    const Point3& source = *objectOf<Point3>(vertex);
    for (size_t axis = 0; axis < 3; ++axis) point[axis] = source[axis];
    return PRO_TK_NO_ERROR;
}

ProError ops::ProFacetverticesFree(Session& session, ProFacetVertex* vertices) {
    if (!session.handles().facetVertices.release(vertices)) {
        session.errors().add("ProFacetverticesFree: the pointer is no block of facet vertices that is out");
        return PRO_TK_BAD_INPUTS;
    }
    return PRO_TK_NO_ERROR;
}

}  // namespace host
