#include "export/ExportDrivers.h"

#include <cstdio>
#include <memory>

#include "export/AssemblyTraversal.h"
#include "export/Cameras.h"
#include "export/ImporterOptions.h"
#include "export/MatrixMath.h"
#include "export/ModelName.h"
#include "export/Representations.h"
#include "export/RunContext.h"
#include "export/SceneGroup.h"
#include "export/SolidExport.h"
#include "export/Units.h"
#include "export/UpdateTracking.h"
#include "export/VisibilityFilters.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/RepeatLinkFactory.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/core/VantrelPlugin.h"
#include "toolkit/HostCallback.h"
#include "toolkit/btk/TextConversion.h"

namespace {

// The model of a run: the host's current model with its name and mode.
struct CurrentModel {
    ProMdl model = nullptr;
    std::string name;
    int mode = 0;
};

bool takeCurrentModel(CurrentModel& current) {
    if (ProMdlCurrentGet(&current.model) != PRO_TK_NO_ERROR || !current.model) return false;
    current.name = modelNameOf(current.model);
    ProModeCurrentGet(&current.mode);
    return true;
}

std::unique_ptr<nvx::LightFactory> makeFactory(const VantrelPlugin& plugin, ExportRoad road,
                                               const std::string& modelName) {
    if (road == ExportRoad::File) {
        char path[1024];
        btk::narrowToBuffer(plugin.settings.exportPath.c_str(), path, sizeof path);
        return std::make_unique<nvx::LightFileFactory>(path);
    }
    auto factory = std::make_unique<nvx::RepeatLinkFactory>();
    factory->set_wanted_scene(road == ExportRoad::Update ? modelName : std::string());
    factory->set_version_range(6, 6);
    return factory;
}

bool freshInstance(nvx::LightFactory& factory, ExportRoad road) {
    if (road == ExportRoad::File) return true;
    return static_cast<nvx::RepeatLinkFactory&>(factory).is_fresh_instance();
}

// The top group of the run, flagged as an assembly group on the live road.
void sendModel(RunContext& run, const CurrentModel& current, ComponentVisitData& visitData) {
    SceneGroup top(run.scene, current.name);
    if (run.road != ExportRoad::File) top.setFlags(GroupFlags::Assembly);
    exportModel(run, current.model, current.mode, visitData, current.name);
}

enum class RunEnd { Finished, RepresentationCancelled };

// The steps of a run from taking the current model to closing the scene.
RunEnd runScene(VantrelPlugin& plugin, ExportRoad road) {
    CurrentModel current;
    if (!takeCurrentModel(current)) return RunEnd::Finished;
    const float meterScale = meterScaleOf(current.model);

    RepresentationItems representationItems;
    ComponentVisitData visitData;
    visitData.representationItems = &representationItems;
    if (road == ExportRoad::Update) selectForUpdate(plugin, current.mode, visitData);
    if (current.mode == PRO_MODE_ASSEMBLY && !selectRepresentation(current.model, visitData))
        return RunEnd::RepresentationCancelled;
    if (road != ExportRoad::Update) plugin.versionStamps.clear();

    std::unique_ptr<nvx::LightFactory> factory = makeFactory(plugin, road, current.name);
    {
        nvx::nvxSceneapi_oo layer(*factory);
        if (!layer.scene()) {
            if (road == ExportRoad::Render) std::printf("Failed");
            return RunEnd::Finished;
        }
        RunContext run(plugin, road, layer, meterScale);
        addImporterOptions(layer, road, freshInstance(*factory, road), plugin.settings.upAxis, meterScale);
        sendModel(run, current, visitData);
    }
    // Closed here rather than by the factory's destructor, so that a scene
    // that can't be completed (a full disk) ends the run with its failure.
    factory->close();
    return RunEnd::Finished;
}

}  // namespace

void exportModel(RunContext& run, ProMdl model, int mode, ComponentVisitData& visitData, const std::string& name) {
    ProMdldata modelData{};
    ProMdlDataGet(model, &modelData);
    int modelType = 0;
    ProMdlTypeGet(model, &modelType);
    exportCameras(run.scene, model);

    visitData.run = &run;
    visitData.parentModel = model;
    setIdentity(visitData.parentInverse);
    visitData.versionStamps = &run.plugin.versionStamps;
    ProAsmcomppathInit(model, nullptr, 0, &visitData.path);
    if (mode == PRO_MODE_ASSEMBLY) {
        ProSolidFeatVisit(model, visitComponent, filterComponent, &visitData);
        toolkit::rethrowVisitFailure();
    } else if (mode != PRO_MODE_PART && mode != PRO_MODE_PART_ALTERNATE) {
        return;
    }

    // The model's own outline and appearance are read; nothing uses them.
    Pro3dPnt outline[2] = {};
    ProSolidOutlineGet(model, outline);
    ProModelitem item{};
    ProMdlToModelitem(model, &item);
    TextureProps texture{};
    ProSurfaceTexturepropsGet(&item, &texture);
    AppearanceProps appearance{};
    ProSurfaceAppearancepropsGet(&item, &appearance);

    ProMatrix identity;
    setIdentity(identity);
    exportSolid(run, model, visitData.path, visitData.path, name, identity, true);
}

void exportToFile(VantrelPlugin& plugin) {
    if (plugin.settings.exportPath.empty()) return;
    runScene(plugin, ExportRoad::File);
}

void renderLive(VantrelPlugin& plugin) {
    plugin.animationFrames.clear();
    if (plugin.renderToFile) {
        exportToFile(plugin);
        return;
    }
    runScene(plugin, ExportRoad::Render);
}

void updateLive(VantrelPlugin& plugin) {
    plugin.updateRun = true;
    if (runScene(plugin, ExportRoad::Update) == RunEnd::RepresentationCancelled) return;
    plugin.updateRun = false;
}
