#pragma once
// The solid's exact geometry as the host's interface data, and the tables
// that tie it to the surfaces the visits found: which exact surfaces belong
// to which visited surface, and where each edge stands in the block.
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "toolkit/ProToolkit.h"

struct InterfaceTables {
    std::map<int, int> edgeIndexById;                             // edge id -> index in the block
    std::map<int, std::vector<ProSurfacedata>> exactSurfacesById;  // visited surface id -> its exact surfaces
    std::vector<ProSurfacedata> unmatchedSurfaces;                // exact surfaces of no visited surface's id
};

// The edge ids of each contour of a surface.
using EdgeContours = std::vector<std::vector<int>>;

// True if some contour of `exact` has all its edge ids in one contour of
// `visited`; a contour without edges counts as held by the first contour of
// `visited`.
bool contoursHeldBy(const EdgeContours& exact, const EdgeContours& visited);

// The first of `visitedCount` visited surfaces whose contours, read on
// demand, hold a contour of `exact`; none if no surface does.
std::optional<std::size_t> firstHoldingSurface(const EdgeContours& exact, std::size_t visitedCount,
                                               const std::function<EdgeContours(std::size_t)>& visitedContours);

// Fetches the solid's interface data into `data` and fills the tables. If the
// host can't give it, the tables stay empty and `data` may stay null. An
// exact surface whose id no visited surface has joins the row of the first
// visited surface that holds one of its contours, or is dropped.
void collectInterfaceData(ProSolid solid, ProIntfData* data, std::set<int> surfaceIds,
                          std::vector<ProSurface> surfaces, InterfaceTables& tables);

// Frees the block if there is one.
void freeInterfaceData(ProIntfData data);

// Frees the block it refers to when it goes, also when a failure ends the
// part's rows.
struct InterfaceDataRelease {
    explicit InterfaceDataRelease(ProIntfData& data) : data(data) {}
    ProIntfData& data;
    InterfaceDataRelease(const InterfaceDataRelease&) = delete;
    InterfaceDataRelease& operator=(const InterfaceDataRelease&) = delete;
    ~InterfaceDataRelease() { freeInterfaceData(data); }
};
