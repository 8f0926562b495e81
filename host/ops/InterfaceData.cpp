// The interface data of a solid: the block of its exact surfaces, edges and
// quilts, as B-splines, and the exact data of a visited surface. Handles of
// the block's surfaces stay valid until the block is freed; so do the host
// arrays of their contours, which the block frees with itself.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

IntfDataBlock* blockOf(Session& session, const char* operation, ProIntfData handle) {
    IntfDataBlock* block = session.handles().interfaceData.find(handle);
    if (!block) session.errors().add(std::string(operation) + ": the handle is no interface data that is out");
    return block;
}

// The filled block's data, or null (logged) for a handle that is no block.
const InterfaceData* dataOf(Session& session, const char* operation, ProIntfData handle) {
    IntfDataBlock* block = blockOf(session, operation, handle);
    return block ? block->data.get() : nullptr;
}

void fill(IntfDataBlock& block, std::shared_ptr<const InterfaceData> data) {
    block.data = std::move(data);
    for (const ExactSurface& surface : block.data->surfaces) block.surfaces.push_back({&surface, &block.arrays});
    for (const ExactQuilt& quilt : block.data->quilts) {
        std::vector<SurfacedataHandle*>& handles = block.quiltSurfaces.emplace_back();
        for (const std::optional<ExactSurface>& surface : quilt.surfaces) {
            if (!surface) {
                handles.push_back(nullptr);
                continue;
            }
            block.surfaces.push_back({&*surface, &block.arrays});
            handles.push_back(&block.surfaces.back());
        }
    }
}

// The contours as host arrays: one array of contours, and one of edge ids for each.
ProContourdata* contourArrayOf(Session& session, SurfacedataHandle& handle) {
    if (handle.contours) return handle.contours;
    const std::vector<EdgeContour>& contours = handle.surface->contours;
    auto* array = static_cast<ProContourdata*>(
        session.arrays().allocate(contours.size(), sizeof(ProContourdata), "surface contours"));
    handle.arrays->push_back(array);
    for (size_t c = 0; c < contours.size(); ++c) {
        array[c].traversal = contours[c].traversal;
        array[c].edgeIds = session.arrays().copyOf<int>(contours[c].edgeIds, "contour edge ids");
        handle.arrays->push_back(array[c].edgeIds);
    }
    handle.contours = array;
    return array;
}

void freeArrays(Session& session, const std::vector<void*>& arrays) {
    for (void* array : arrays) session.arrays().free(array);
}

template <typename Count>
ProError countOf(Session& session, const char* operation, ProIntfData data, int* count, Count counted) {
    if (!count) return PRO_TK_BAD_INPUTS;
    const InterfaceData* filled = dataOf(session, operation, data);
    if (!filled) return PRO_TK_BAD_INPUTS;
    *count = static_cast<int>(counted(*filled));
    return PRO_TK_NO_ERROR;
}

}  // namespace

ProError ops::ProIntfDataAlloc(Session& session, ProIntfData* data) {
    if (!data) return PRO_TK_BAD_INPUTS;
    *data = handleOf<ProIntfData>(*session.handles().interfaceData.make());
    return PRO_TK_NO_ERROR;
}

ProError ops::ProIntfDataFree(Session& session, ProIntfData data) {
    std::unique_ptr<IntfDataBlock> block = session.handles().interfaceData.take(data);
    if (!block) {
        session.errors().add("ProIntfDataFree: the handle is no interface data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    freeArrays(session, block->arrays);
    return PRO_TK_NO_ERROR;
}

// Fills an empty block with the solid's exact geometry: curves in surface
// parameters as B-splines, surfaces as B-spline surfaces. A solid whose
// geometry can't be converted answers a failure and leaves the block empty.
ProError ops::ProPartToProIntfData(Session& session, ProSolid solid, ProIntfDataOptions* options, ProIntfData data) {
    constexpr const char* operation = "ProPartToProIntfData";
    const Model* model = modelOf(session, solid);
    IntfDataBlock* block = blockOf(session, operation, data);
    if (!model || !block || !options) return PRO_TK_BAD_INPUTS;
    if (block->data) {
        session.errors().add(std::string(operation) + ": the interface data is filled already");
        return PRO_TK_BAD_INPUTS;
    }
    if (!(options->flags & PRO_INTF_UV_CURVES) || options->curveOption != PRO_PART_CURVES_AS_BSPLINES ||
        options->surfaceOption != PRO_PART_SURFACES_AS_BSPL_SURFACES)
        return PRO_TK_BAD_INPUTS;
    std::shared_ptr<const InterfaceData> converted =
        model->exactGeometry ? model->exactGeometry->interfaceData() : nullptr;
    if (!converted) return PRO_TK_GENERAL_ERROR;
    fill(*block, std::move(converted));
    return PRO_TK_NO_ERROR;
}

ProError ops::ProIntfDataEdgeCount(Session& session, ProIntfData data, int* count) {
    return countOf(session, "ProIntfDataEdgeCount", data, count, [](const InterfaceData& d) { return d.edges.size(); });
}

ProError ops::ProIntfDataSurfaceCount(Session& session, ProIntfData data, int* count) {
    return countOf(session, "ProIntfDataSurfaceCount", data, count,
                   [](const InterfaceData& d) { return d.surfaces.size(); });
}

ProError ops::ProIntfDataQuiltCount(Session& session, ProIntfData data, int* count) {
    return countOf(session, "ProIntfDataQuiltCount", data, count,
                   [](const InterfaceData& d) { return d.quilts.size(); });
}

ProError ops::ProIntfDataDatumCount(Session& session, ProIntfData data, int* count) {
    return countOf(session, "ProIntfDataDatumCount", data, count, [](const InterfaceData& d) { return d.datumCount; });
}

// An index outside the block answers PRO_TK_E_NOT_FOUND: the plug-in reads
// edges by indexes of its own table and may ask for one that isn't there.
ProError ops::ProIntfDataEdgeGet(Session& session, ProIntfData data, int index, ProEdgedata* edge) {
    const InterfaceData* filled = dataOf(session, "ProIntfDataEdgeGet", data);
    if (!filled || !edge) return PRO_TK_BAD_INPUTS;
    if (index < 0 || index >= static_cast<int>(filled->edges.size())) return PRO_TK_E_NOT_FOUND;
    *edge = handleOf<ProEdgedata>(*session.handles().edgeData.make(&filled->edges[static_cast<size_t>(index)]));
    return PRO_TK_NO_ERROR;
}

ProError ops::ProEdgedataMemoryFree(Session& session, ProEdgedata edge) {
    if (!session.handles().edgeData.release(edge)) {
        session.errors().add("ProEdgedataMemoryFree: the handle is no edge data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    return PRO_TK_NO_ERROR;
}

// Any output may be null. The curves are filled into storage that the
// plug-in allocated; a side without a curve leaves its storage empty.
ProError ops::ProEdgedataGet(Session& session, ProEdgedata edge, int* id, int surfaceIds[2], int directions[2], void*,
                             ProCurvedata uvCurves[2], void*) {
    const EdgedataHandle* handle = session.handles().edgeData.find(edge);
    if (!handle) {
        session.errors().add("ProEdgedataGet: the handle is no edge data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    const ExactEdge& source = *handle->edge;
    if (id) *id = source.id;
    for (size_t side = 0; side < 2; ++side) {
        if (surfaceIds) surfaceIds[side] = source.sides[side].surfaceId;
        if (directions) directions[side] = source.sides[side].direction;
        if (!uvCurves || !uvCurves[side]) continue;
        CurveStorage* storage = session.handles().curves.find(uvCurves[side]);
        if (!storage) {
            session.errors().add("ProEdgedataGet: a curve is no curve storage that is out");
            return PRO_TK_BAD_INPUTS;
        }
        storage->type = source.sides[side].curve ? source.sides[side].curveType : 0;
        storage->curve = source.sides[side].curve;
    }
    return PRO_TK_NO_ERROR;
}

ProError ops::ProIntfDataSurfaceGet(Session& session, ProIntfData data, int index, ProSurfacedata* surface) {
    IntfDataBlock* block = blockOf(session, "ProIntfDataSurfaceGet", data);
    if (!block || !block->data || !surface) return PRO_TK_BAD_INPUTS;
    if (index < 0 || index >= static_cast<int>(block->data->surfaces.size())) return PRO_TK_E_NOT_FOUND;
    *surface = handleOf<ProSurfacedata>(block->surfaces[static_cast<size_t>(index)]);
    return PRO_TK_NO_ERROR;
}

// The surface's type is always that of a B-spline surface; the shape is null
// for a surface that is none.
ProError ops::ProSurfacedataGet(Session&, ProSurfacedata surface, int* type, ProSurfaceshapedata* shape, int* id) {
    if (!surface) return PRO_TK_BAD_INPUTS;
    const ExactSurface& source = *objectOf<SurfacedataHandle>(surface)->surface;
    if (type) *type = PRO_ENT_B_SPLINE;
    if (shape) *shape = source.shape ? handleOf<ProSurfaceshapedata>(*source.shape) : nullptr;
    if (id) *id = source.id;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSurfacedataContourArrayGet(Session& session, ProSurfacedata surface, ProContourdata** contours) {
    if (!surface || !contours) return PRO_TK_BAD_INPUTS;
    auto* handle = const_cast<SurfacedataHandle*>(objectOf<SurfacedataHandle>(surface));
    *contours = contourArrayOf(session, *handle);
    return PRO_TK_NO_ERROR;
}

ProError ops::ProIntfDataQuiltGet(Session& session, ProIntfData data, int index, ProQuiltdata* quilt) {
    IntfDataBlock* block = blockOf(session, "ProIntfDataQuiltGet", data);
    if (!block || !block->data || !quilt) return PRO_TK_BAD_INPUTS;
    if (index < 0 || index >= static_cast<int>(block->data->quilts.size())) return PRO_TK_E_NOT_FOUND;
    const size_t at = static_cast<size_t>(index);
    QuiltdataHandle* made = session.handles().quiltData.make(&block->data->quilts[at], &block->quiltSurfaces[at]);
    *quilt = handleOf<ProQuiltdata>(*made);
    return PRO_TK_NO_ERROR;
}

// The quilt's surfaces come as a host array of surface handles, nulls among
// them, that stays the quilt's and goes with it.
ProError ops::ProQuiltdataGet(Session& session, ProQuiltdata quilt, int* id, ProSurfacedata** surfaces) {
    QuiltdataHandle* handle = session.handles().quiltData.find(quilt);
    if (!handle) {
        session.errors().add("ProQuiltdataGet: the handle is no quilt data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    if (id) *id = handle->quilt->id;
    if (!surfaces) return PRO_TK_NO_ERROR;
    if (!handle->surfaceArray) {
        std::vector<ProSurfacedata> array;
        for (SurfacedataHandle* surface : *handle->surfaces)
            array.push_back(surface ? handleOf<ProSurfacedata>(*surface) : nullptr);
        handle->surfaceArray = session.arrays().copyOf<ProSurfacedata>(array, "quilt surfaces");
    }
    *surfaces = handle->surfaceArray;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProQuiltdataMemoryFree(Session& session, ProQuiltdata quilt) {
    std::unique_ptr<QuiltdataHandle> handle = session.handles().quiltData.take(quilt);
    if (!handle) {
        session.errors().add("ProQuiltdataMemoryFree: the handle is no quilt data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    if (handle->surfaceArray) session.arrays().free(handle->surfaceArray);
    return PRO_TK_NO_ERROR;
}

// The exact data of a visited surface holds its contours and no shape.
ProError ops::ProSurfaceDataGet(Session& session, ProSurface surface, ProGeomitemdata** data) {
    if (!surface || !data) return PRO_TK_BAD_INPUTS;
    const Surface& source = *objectOf<Surface>(surface);
    GeomitemRecord* record = session.handles().geomitemData.make();
    record->surface.id = source.id;
    record->surface.contours = source.contours;
    record->handle = {&record->surface, &record->arrays, nullptr};
    record->data = {PRO_ITEM_SURFACE, handleOf<ProSurfacedata>(record->handle)};
    *data = &record->data;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProGeomitemdataFree(Session& session, ProGeomitemdata** data) {
    std::unique_ptr<GeomitemRecord> record = data ? session.handles().geomitemData.take(*data) : nullptr;
    if (!record) {
        session.errors().add("ProGeomitemdataFree: the pointer is no surface data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    freeArrays(session, record->arrays);
    *data = nullptr;
    return PRO_TK_NO_ERROR;
}

// Views into the block's own storage, valid until the block is freed;
// nothing here is for the plug-in to free.
ProError ops::ProBsplinesrfdataGet(Session&, ProSurfaceshapedata shape, int degrees[2], double** knotsU,
                                   double** knotsV, double** weights, Pro3dPnt** points, int* knotCountU,
                                   int* knotCountV, int* pointCount) {
    static_assert(sizeof(Pro3dPnt) == sizeof(Point3), "the host's point has the toolkit's layout");
    if (!shape) return PRO_TK_GENERAL_ERROR;
    if (!degrees || !knotsU || !knotsV || !weights || !points || !knotCountU || !knotCountV || !pointCount)
        return PRO_TK_BAD_INPUTS;
    auto& source = const_cast<BsplineSurfaceData&>(*objectOf<BsplineSurfaceData>(shape));
    degrees[0] = source.degreeU;
    degrees[1] = source.degreeV;
    *knotsU = source.knotsU.data();
    *knotsV = source.knotsV.data();
    *weights = source.weights.empty() ? nullptr : source.weights.data();
    *points = reinterpret_cast<Pro3dPnt*>(source.points.data());
    *knotCountU = static_cast<int>(source.knotsU.size());
    *knotCountV = static_cast<int>(source.knotsV.size());
    *pointCount = static_cast<int>(source.points.size());
    return PRO_TK_NO_ERROR;
}

}  // namespace host
