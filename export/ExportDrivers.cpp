#include "export/ExportDrivers.h"

#include <cstdio>
#include <exception>
#include <memory>

#include "export/AssemblyTraversal.h"
#include "export/Cameras.h"
#include "export/ImporterOptions.h"
#include "export/MatrixMath.h"
#include "export/Representations.h"
#include "export/SolidExport.h"
#include "export/Units.h"
#include "export/UpdateTracking.h"
#include "export/VisibilityFilters.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/RepeatLinkFactory.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "platform/Files.h"
#include "plugin/FinishDialog.h"
#include "plugin/SettingsFile.h"
#include "plugin/VantrelPlugin.h"
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
    ProMdlName wideName = {};
    ProMdlNameGet(current.model, wideName);
    wideName[sizeof wideName / sizeof wideName[0] - 1] = 0;
    char name[260];
    btk::narrowToBuffer(wideName, name, sizeof name);
    current.name = name;
    ProModeCurrentGet(&current.mode);
    return true;
}

std::unique_ptr<nvx::LightFactory> makeFactory(VantrelPlugin& plugin, ExportRoad road, const std::string& modelName) {
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

enum class RunEnd { Finished, RepresentationCancelled };

// The steps of a run from taking the current model to closing the scene.
RunEnd runScene(VantrelPlugin& plugin, ExportRoad road) {
    CurrentModel current;
    if (!takeCurrentModel(current)) return RunEnd::Finished;
    plugin.meterScale = meterScaleOf(plugin, current.model);

    RepresentationItems representationItems;
    ComponentVisitData visitData;
    visitData.representationItems = &representationItems;
    if (road == ExportRoad::Update) selectForUpdate(plugin, current.mode, visitData);
    if (current.mode == PRO_MODE_ASSEMBLY && !selectRepresentation(current.model, visitData))
        return RunEnd::RepresentationCancelled;
    if (road != ExportRoad::Update) plugin.versionStamps.clear();

    std::unique_ptr<nvx::LightFactory> factory = makeFactory(plugin, road, current.name);
    // The layer lives for the run; plugin.scene is stale afterwards.
    auto layer = std::make_unique<nvx::nvxSceneapi_oo>(*factory);
    plugin.scene = layer.get();
    if (!plugin.scene->scene()) {
        if (road == ExportRoad::Render) std::printf("Failed");
        return RunEnd::Finished;
    }
    addImporterOptions(*plugin.scene, road, freshInstance(*factory, road), plugin.settings.upAxis,
                       plugin.meterScale);
    plugin.scene->begin_group(current.name);
    if (road != ExportRoad::File) plugin.scene->scene()->set_flags(ASSEMBLY_GROUP_FLAGS);
    exportModel(plugin, current.model, current.mode, visitData, current.name);
    plugin.scene->end_group();
    plugin.partInstances.clear();
    return RunEnd::Finished;
}

// Directory and file name of the last export, offered by the file dialog.
// A part that doesn't fit its buffer is offered empty.
struct SaveDefaults {
    std::u16string directory;
    std::u16string name;
};

SaveDefaults saveDefaultsFrom(const std::u16string& exportPath) {
    constexpr size_t directoryCapacity = 260, nameCapacity = 40;
    SaveDefaults defaults;
    if (exportPath.empty()) return defaults;
    if (exportPath.size() < directoryCapacity) defaults.directory = exportPath;
    size_t separator = defaults.directory.rfind(platform::pathSeparator);
    if (separator == std::u16string::npos) return defaults;
    std::u16string name = defaults.directory.substr(separator + 1);
    if (name.size() < nameCapacity) defaults.name = name;
    defaults.directory.resize(separator);
    return defaults;
}

// A command action is called by the host: nothing may escape it.
template <typename Run>
void guardedRun(const char* command, Run run) {
    try {
        run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", command, error.what());
    }
}

}  // namespace

void exportModel(VantrelPlugin& plugin, ProMdl model, int mode, ComponentVisitData& visitData,
                 const std::string& name) {
    ProMdldata modelData{};
    ProMdlDataGet(model, &modelData);
    int modelType = 0;
    ProMdlTypeGet(model, &modelType);
    exportCameras(plugin, model);

    visitData.parentModel = model;
    setIdentity(visitData.parentInverse);
    visitData.versionStamps = &plugin.versionStamps;
    ProAsmcomppathInit(model, nullptr, 0, &visitData.path);
    if (mode == PRO_MODE_ASSEMBLY)
        ProSolidFeatVisit(model, visitComponent, filterComponent, &visitData);
    else if (mode != PRO_MODE_PART && mode != PRO_MODE_PART_ALTERNATE)
        return;

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
    exportSolid(plugin, model, visitData.path, visitData.path, name, identity, true);
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

int renderCommandAction() {
    ProLine value = {};
    ProConfigoptGet("vantrel_settings", value);
    ProConfigoptGet("what", value);
    guardedRun("Vantrel Plugin Render", [] { renderLive(*VantrelPlugin::instance()); });
    return 0;
}

int updateCommandAction() {
    guardedRun("Vantrel Plugin Update", [] { updateLive(*VantrelPlugin::instance()); });
    return 0;
}

int exportCommandAction() {
    VantrelPlugin& plugin = *VantrelPlugin::instance();
    SaveDefaults defaults = saveDefaultsFrom(plugin.settings.exportPath);
    ProPath chosen = {};
    if (ProFileSave(u"Save as vnz", u"*.vnz", nullptr, nullptr, defaults.directory.c_str(), defaults.name.c_str(),
                    chosen) == PRO_TK_USER_ABORT)
        return 0;
    chosen[sizeof chosen / sizeof chosen[0] - 1] = 0;
    plugin.settings.exportPath = chosen;
    guardedRun("Vantrel Plugin Export", [&plugin] { exportToFile(plugin); });
    showExportFinished();
    saveSettings(plugin);
    return 0;
}
