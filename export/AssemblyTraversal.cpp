#include "export/AssemblyTraversal.h"

#include "export/MaterialEmission.h"
#include "export/MatrixMath.h"
#include "export/ModelName.h"
#include "export/RunContext.h"
#include "export/SceneGroup.h"
#include "export/SolidExport.h"
#include "export/UpdateTracking.h"
#include "export/VisibilityFilters.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "toolkit/HostCallback.h"

namespace {

// Included through the representation: the default action includes it or
// the parent does, and the component's own item can override.
bool includedInRepresentation(const ComponentVisitData& data, const ProAsmcomppath& fullPath) {
    bool included = data.defaultAction == PRO_SIMPREP_INCLUDE || data.included;
    auto item = data.representationItems->find(fullPath);
    if (item == data.representationItems->end()) return included;
    switch (item->second.type) {
        case PRO_SIMPREP_REVERSE: return !included;
        case PRO_SIMPREP_EXCLUDE: return false;
        default: return true;
    }
}

// A sub-assembly: a group holding its children, its animation and then its
// transform relative to the parent.
void visitSubassembly(const ComponentVisitData& data, ProMdl model, const ProAsmcomppath& fullPath,
                      const ProAsmcomppath& localPath, const std::string& name, const ProMatrix toTop,
                      const ProMatrix local, bool included, bool selected) {
    RunContext& run = *data.run;
    SceneGroup node(run.scene, name, GroupFlags::Assembly);
    ComponentVisitData children;
    children.run = data.run;
    children.path = fullPath;
    children.parentModel = model;
    children.versionStamps = data.versionStamps;
    children.defaultAction = data.defaultAction;
    children.representationItems = data.representationItems;
    children.included = included;
    children.selected = selected;
    invertSimilarity(toTop, children.parentInverse);
    ProSolidFeatVisit(model, visitComponent, filterComponent, &children);
    toolkit::rethrowVisitFailure();
    node.place(run.plugin, fullPath, localPath, name, local);
}

ProError visitComponentBody(ProFeature* feature, ComponentVisitData& data) {
    RunContext& run = *data.run;
    const VantrelPlugin& plugin = run.plugin;

    ProMdl model = nullptr;
    ProAsmcompMdlGet(feature, &model);
    std::string name = modelNameOf(model);

    ProAsmcomppath fullPath{};
    int ids[PRO_MAX_ASSEM_LEVEL + 1] = {};
    for (int i = 0; i < data.path.componentIdCount && i < PRO_MAX_ASSEM_LEVEL; ++i) ids[i] = data.path.componentIds[i];
    ids[data.path.componentIdCount] = feature->id;
    ProAsmcomppathInit(data.path.ownerModel, ids, data.path.componentIdCount + 1, &fullPath);
    ProAsmcomppath localPath{};
    ProAsmcomppathInit(data.parentModel, &feature->id, 1, &localPath);

    ProMatrix toTop = {}, local = {};
    ProAsmcomppathTrfGet(&fullPath, PRO_B_TRUE, toTop);
    multiplyMatrix(toTop, data.parentInverse, local);

    bool changed = componentChanged(*data.versionStamps, fullPath, model);
    bool selected = componentSelected(plugin, fullPath, data.selected);
    bool included = includedInRepresentation(data, fullPath);

    int type = 0;
    ProMdlTypeGet(model, &type);
    std::string key = name + (type == PRO_MDL_ASSEMBLY ? ".asm" : ".prt");
    if (type != PRO_MDL_PART && type != PRO_MDL_ASSEMBLY) return PRO_TK_NO_ERROR;
    if (type == PRO_MDL_ASSEMBLY)
        visitSubassembly(data, model, fullPath, localPath, name, toTop, local, included, selected);

    // partInstances has no producer, so every occurrence of a part goes out in
    // full as its own group; the instance form stands ready for such a table.
    if (run.partInstances.count(key)) {
        emitInstances(run, key, name);
        return PRO_TK_NO_ERROR;
    }
    bool emitGeometry = shouldEmitGeometry(plugin.updateRun, changed, included, selected);
    exportSolid(run, model, fullPath, localPath, name, local, emitGeometry);
    return PRO_TK_NO_ERROR;
}

}  // namespace

ProError visitComponent(ProFeature* feature, ProError, ProAppData appData) {
    return toolkit::guardVisit([&] { return visitComponentBody(feature, *static_cast<ComponentVisitData*>(appData)); });
}

void emitInstances(RunContext& run, const std::string& key, const std::string& name) {
    auto row = run.partInstances[key];
    nvxScene_api& scene = *run.scene.scene();
    for (const auto& [record, ids] : row) {
        SceneGroup group(run.scene, name, GroupFlags::ExactRows);
        for (int id : ids) {
            scene.begin_object(name.c_str(), true);
            scene.begin_geometry("instance");
            scene.set_attribute("id", ATTR_INT, &id);
            scene.end_geometry();
            emitMaterial(scene, run.settings.separateMaterials, name, record);
            scene.end_object();
        }
    }
}
