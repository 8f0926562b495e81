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
ProError visitOfPart(int context, OwnerHandle owner, std::vector<Item> Owner::*items, Action action, Filter filter,
                     ProAppData data) {
    if (!sessionFor(context)) return PRO_TK_GENERAL_ERROR;
    if (!owner || !action) return PRO_TK_BAD_INPUTS;
    return ops::visitEach(ops::objectOf<Owner>(owner)->*items, ops::handleMaker<Handle>(), filter, action, data);
}

}  // namespace

ProError ops::ProSolidSurfaceVisit(int context, ProSolid solid, ProSurfaceVisitAction action,
                                   ProSurfaceFilterAction filter, ProAppData data) {
    return visitOfSolid(context, solid, &Model::surfaces, handleMaker<ProSurface>(), filter, action, data);
}

ProError ops::ProSolidQuiltVisit(int context, ProSolid solid, ProQuiltVisitAction action, ProQuiltFilterAction filter,
                                 ProAppData data) {
    return visitOfSolid(context, solid, &Model::quilts, handleMaker<ProQuilt>(), filter, action, data);
}

ProError ops::ProSolidFacetsetVisit(int context, ProSolid solid, ProFacetsetVisitAction action,
                                    ProFacetsetFilterAction filter, ProAppData data) {
    return visitOfSolid(context, solid, &Model::facetSets, handleMaker<ProFacetset>(), filter, action, data);
}

ProError ops::ProQuiltSurfaceVisit(int context, ProQuilt quilt, ProSurfaceVisitAction action,
                                   ProSurfaceFilterAction filter, ProAppData data) {
    return visitOfPart<ProSurface>(context, quilt, &Quilt::surfaces, action, filter, data);
}

ProError ops::ProFacetsetFacetVisit(int context, ProFacetset facetset, ProFacetVisitAction action,
                                    ProFacetFilterAction filter, ProAppData data) {
    return visitOfPart<ProFacet>(context, facetset, &FacetSet::facets, action, filter, data);
}

ProError ops::ProSurfaceIdGet(int context, ProSurface surface, int* id) {
    if (!sessionFor(context)) return PRO_TK_GENERAL_ERROR;
    if (!surface || !id) return PRO_TK_BAD_INPUTS;
    *id = objectOf<Surface>(surface)->id;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProQuiltIdGet(int context, ProQuilt quilt, int* id) {
    if (!sessionFor(context)) return PRO_TK_GENERAL_ERROR;
    if (!quilt || !id) return PRO_TK_BAD_INPUTS;
    *id = objectOf<Quilt>(quilt)->id;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSurfaceToGeomitem(int context, ProSolid solid, ProSurface surface, ProGeomitem* item) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!modelOf(*session, solid) || !surface || !item) return PRO_TK_BAD_INPUTS;
    *item = ProGeomitem{PRO_ITEM_SURFACE, objectOf<Surface>(surface)->id, solid};
    return PRO_TK_NO_ERROR;
}

ProError ops::ProQuiltToGeomitem(int context, ProSolid solid, ProQuilt quilt, ProGeomitem* item) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!modelOf(*session, solid) || !quilt || !item) return PRO_TK_BAD_INPUTS;
    *item = ProGeomitem{PRO_ITEM_QUILT, objectOf<Quilt>(quilt)->id, solid};
    return PRO_TK_NO_ERROR;
}

// The model's own outline if it has one, else the box around the extents of
// its surfaces (those of quilts too) and the points of its facets; a model
// with no geometry has both corners at the origin.
ProError ops::ProSolidOutlineGet(int context, ProSolid solid, Pro3dPnt outline[2]) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    const Model* model = modelOf(*session, solid);
    if (!model || !outline) return PRO_TK_BAD_INPUTS;
    if (model->outlineFails) return PRO_TK_GENERAL_ERROR;
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
ProError ops::ProFacetVerticesGet(int context, ProFacet facet, ProFacetVertex** vertices) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!facet || !vertices) return PRO_TK_BAD_INPUTS;
    const Facet& source = *objectOf<Facet>(facet);
    FacetVertices* block = session->handles().facetVertices.make();
    for (size_t corner = 0; corner < 3; ++corner) (*block)[corner] = handleOf<ProFacetVertex>(source.points[corner]);
    *vertices = block->data();
    return PRO_TK_NO_ERROR;
}

ProError ops::ProFacetNormalGet(int context, ProFacet facet, ProVector normal) {
    if (!sessionFor(context)) return PRO_TK_GENERAL_ERROR;
    if (!facet || !normal) return PRO_TK_BAD_INPUTS;
    const Point3& source = objectOf<Facet>(facet)->normal;
    for (size_t axis = 0; axis < 3; ++axis) normal[axis] = source[axis];
    return PRO_TK_NO_ERROR;
}

ProError ops::ProFacetvertexPointGet(int context, ProFacetVertex vertex, Pro3dPnt point) {
    if (!sessionFor(context)) return PRO_TK_GENERAL_ERROR;
    if (!vertex || !point) return PRO_TK_BAD_INPUTS;
    const Point3& source = *objectOf<Point3>(vertex);
    for (size_t axis = 0; axis < 3; ++axis) point[axis] = source[axis];
    return PRO_TK_NO_ERROR;
}

ProError ops::ProFacetverticesFree(int context, ProFacetVertex* vertices) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!session->handles().facetVertices.release(vertices)) {
        session->errors().add("ProFacetverticesFree: the pointer is no block of facet vertices that is out");
        return PRO_TK_BAD_INPUTS;
    }
    return PRO_TK_NO_ERROR;
}

}  // namespace host
