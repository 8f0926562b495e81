#pragma once
// The "nurbs" objects of one visited surface: one for each of its exact
// surfaces, each with the surface's trim contours and the material of its
// mesh.
#include <functional>
#include <set>
#include <string>

#include "export/InterfaceData.h"
#include "importers/sceneapi/nvxScene_api.h"
#include "export/ScratchArrays.h"
#include "toolkit/ProToolkit.h"

// What the exact objects of a solid's surfaces are made from.
struct ExactGeometrySource {
    ProSolid solid = nullptr;
    ProIntfData interfaceData = nullptr;
    InterfaceTables* tables = nullptr;
    const std::set<int>* visitedSurfaceIds = nullptr;
};

// Writes the objects, named `partName`; `emitMaterial` writes the material
// block inside each. Answers how many objects were written.
int writeExactSurfaces(nvxScene_api& scene, ScratchArrays& buffers, const ExactGeometrySource& source,
                       ProSurface surface, const std::string& partName, const std::function<void()>& emitMaterial);
