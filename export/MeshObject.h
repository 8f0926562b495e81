#pragma once
// The "triangles" object of the mesh in the run's buffers, with its material.
#include <string>

#include "export/MaterialRecord.h"
#include "export/ScratchArrays.h"
#include "importers/sceneapi/nvxScene_api.h"

void writeMeshObject(nvxScene_api& scene, const ScratchArrays& buffers, const std::string& partName,
                     const MaterialRecord& record, bool separateMaterials);
