#pragma once
// The trim contours of a visited surface, read through the host's contour
// and edge visits: each edge's curve on this surface from the interface
// data, turned to the direction in which the contour uses it, then chained,
// oriented and flattened into the trim buffers.
#include <map>
#include <set>
#include <vector>

#include "export/TrimCurves.h"
#include "export/ScratchArrays.h"
#include "toolkit/ProToolkit.h"

struct ContourVisitData {
    ProSolid solid = nullptr;
    ProSurface* surface = nullptr;           // the visited surface
    ProIntfData interfaceData = nullptr;
    std::map<int, int>* edgeIndexById = nullptr;
    const std::set<int>* visitedSurfaceIds = nullptr;
    std::vector<TrimCurve> curves;           // the current contour's curves
    ScratchArrays* buffers = nullptr;        // where the contours go
};

// Appends every contour of the visited surface to the trim buffers.
void readTrimContours(ContourVisitData& data);

// The B-spline of a curve, or none if the host can't give it.
bool readTrimCurve(ProCurvedata curve, TrimCurve& result);
