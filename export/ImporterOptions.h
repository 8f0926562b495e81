#pragma once
// How the application's importer takes a run's scene: one options module,
// filled by road.
#include "export/ExportRoad.h"

namespace nvx {
class nvxSceneapi_oo;
}

// Fills the importer's options module for the road and adds it to the scene.
// `freshInstance` tells whether the connected application does not yet show
// the model; the file road counts as fresh.
void addImporterOptions(nvx::nvxSceneapi_oo& scene, ExportRoad road, bool freshInstance, int upAxis,
                        float meterScale);
