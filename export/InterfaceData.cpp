#include "export/InterfaceData.h"

#include <algorithm>

bool contoursHeldBy(const EdgeContours& exact, const EdgeContours& visited) {
    for (const std::vector<int>& contour : exact) {
        if (contour.empty()) {
            if (!visited.empty()) return true;
            continue;
        }
        for (const std::vector<int>& candidate : visited) {
            auto held = [&](int edgeId) {
                return std::find(candidate.begin(), candidate.end(), edgeId) != candidate.end();
            };
            if (std::all_of(contour.begin(), contour.end(), held)) return true;
        }
    }
    return false;
}

std::optional<std::size_t> firstHoldingSurface(const EdgeContours& exact, std::size_t visitedCount,
                                               const std::function<EdgeContours(std::size_t)>& visitedContours) {
    for (std::size_t i = 0; i < visitedCount; ++i) {
        if (contoursHeldBy(exact, visitedContours(i))) return i;
    }
    return std::nullopt;
}

namespace {

int arraySize(const void* array) {
    int size = 0;
    if (array) ProArraySizeGet(const_cast<void*>(array), &size);
    return size;
}

EdgeContours contoursOf(ProSurfacedata surface) {
    EdgeContours result;
    ProContourdata* contours = nullptr;
    ProSurfacedataContourArrayGet(surface, &contours);
    const int count = arraySize(contours);
    for (int c = 0; c < count; ++c) {
        const int* ids = contours[c].edgeIds;
        result.emplace_back(ids, ids + arraySize(ids));
    }
    return result;
}

EdgeContours contoursOfVisited(ProSurface surface) {
    ProGeomitemdata* data = nullptr;
    ProSurfaceDataGet(surface, &data);
    EdgeContours result;
    if (data) result = contoursOf(data->surface);
    ProGeomitemdataFree(&data);
    return result;
}

void indexEdges(ProIntfData data, InterfaceTables& tables) {
    int count = 0;
    ProIntfDataEdgeCount(data, &count);
    for (int i = 0; i < count; ++i) {
        ProEdgedata edge = nullptr;
        ProIntfDataEdgeGet(data, i, &edge);
        int id = 0;
        ProEdgedataGet(edge, &id, nullptr, nullptr, nullptr, nullptr, nullptr);
        tables.edgeIndexById[id] = i;
        ProEdgedataMemoryFree(edge);
    }
}

void sortSurface(ProSurfacedata surface, const std::set<int>& surfaceIds, InterfaceTables& tables) {
    int type = 0, id = 0;
    ProSurfaceshapedata shape = nullptr;
    ProSurfacedataGet(surface, &type, &shape, &id);
    if (surfaceIds.contains(id)) tables.exactSurfacesById[id].push_back(surface);
    else tables.unmatchedSurfaces.push_back(surface);
}

void sortSurfaces(ProIntfData data, const std::set<int>& surfaceIds, InterfaceTables& tables) {
    int count = 0;
    ProIntfDataSurfaceCount(data, &count);
    for (int i = 0; i < count; ++i) {
        ProSurfacedata surface = nullptr;
        ProIntfDataSurfaceGet(data, i, &surface);
        sortSurface(surface, surfaceIds, tables);
    }
}

void sortQuiltSurfaces(ProIntfData data, const std::set<int>& surfaceIds, InterfaceTables& tables) {
    int datums = 0, count = 0;
    ProIntfDataDatumCount(data, &datums);
    ProIntfDataQuiltCount(data, &count);
    for (int i = 0; i < count; ++i) {
        ProQuiltdata quilt = nullptr;
        ProIntfDataQuiltGet(data, i, &quilt);
        int id = 0;
        ProSurfacedata* surfaces = nullptr;
        ProQuiltdataGet(quilt, &id, &surfaces);
        const int size = arraySize(surfaces);
        for (int s = 0; s < size; ++s) {
            if (surfaces[s]) sortSurface(surfaces[s], surfaceIds, tables);
        }
        ProQuiltdataMemoryFree(quilt);
    }
}

void matchUnmatched(const std::vector<ProSurface>& surfaces, InterfaceTables& tables) {
    for (ProSurfacedata exact : tables.unmatchedSurfaces) {
        auto found = firstHoldingSurface(contoursOf(exact), surfaces.size(),
                                         [&](std::size_t i) { return contoursOfVisited(surfaces[i]); });
        if (!found) continue;
        int id = 0;
        ProSurfaceIdGet(surfaces[*found], &id);
        tables.exactSurfacesById[id].push_back(exact);
    }
}

}  // namespace

void collectInterfaceData(ProSolid solid, ProIntfData* data, std::set<int> surfaceIds,
                          std::vector<ProSurface> surfaces, InterfaceTables& tables) {
    ProIntfDataAlloc(data);
    ProIntfDataOptions options{PRO_INTF_UV_POINTS | PRO_INTF_UV_CURVES, PRO_PART_CURVES_AS_BSPLINES,
                               PRO_PART_SURFACES_AS_BSPL_SURFACES};
    if (ProPartToProIntfData(solid, &options, *data) == PRO_TK_NO_ERROR && *data) {
        indexEdges(*data, tables);
        sortSurfaces(*data, surfaceIds, tables);
        sortQuiltSurfaces(*data, surfaceIds, tables);
    }
    matchUnmatched(surfaces, tables);
}

void freeInterfaceData(ProIntfData data) {
    if (data) ProIntfDataFree(data);
}
