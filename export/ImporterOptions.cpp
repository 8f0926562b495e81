#include "export/ImporterOptions.h"

#include "importers/sceneapi/LightNode.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"

void addImporterOptions(nvx::nvxSceneapi_oo& scene, ExportRoad road, bool freshInstance, int upAxis,
                        float meterScale) {
    const bool fileRoad = road == ExportRoad::File;
    nvx::DefaultRTModule module;
    module.set_import_mode(true);
    module.set_merge_groups(false);
    module.set_merge_objects(false);
    module.set_adjust_environment(fileRoad || freshInstance);
    module.set_adjust_camera(fileRoad || freshInstance);
    module.set_keep_original(true);
    module.set_up_vector(upAxis);
    module.set_meter_scale(meterScale);
    // An Update never moves the model to the ground.
    if (road != ExportRoad::Update) module.set_snap_to_ground(fileRoad || freshInstance);
    module.set_ext(false);
    scene.add(module);
}
