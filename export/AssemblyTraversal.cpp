#include "export/AssemblyTraversal.h"

#include "animation/AnimationEmission.h"
#include "export/MaterialEmission.h"
#include "export/MatrixMath.h"
#include "export/SolidExport.h"
#include "export/UpdateTracking.h"
#include "export/VisibilityFilters.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/VantrelPlugin.h"

namespace {

constexpr int instanceGroupFlags = 66560;

// Included through the representation: the default action 2 or the parent
// includes it, and the component's own item can override.
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
void visitSubassembly(VantrelPlugin& plugin, const ComponentVisitData& data, ProMdl model,
                      const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath, const std::string& name,
                      const ProMatrix toTop, const ProMatrix local, bool included, bool selected) {
    nvx::nvxSceneapi_oo* scene = plugin.scene;
    scene->begin_group(name);
    scene->scene()->set_flags(ASSEMBLY_GROUP_FLAGS);
    ComponentVisitData children;
    children.path = fullPath;
    children.parentModel = model;
    children.versionStamps = data.versionStamps;
    children.defaultAction = data.defaultAction;
    children.representationItems = data.representationItems;
    children.included = included;
    children.selected = selected;
    invertSimilarity(toTop, children.parentInverse);
    ProSolidFeatVisit(model, visitComponent, filterComponent, &children);
    emitAnimation(plugin, fullPath, localPath, name);
    scene->scene()->apply_transform(&local[0][0]);
    scene->end_group();
}

}  // namespace

ProError visitComponent(ProFeature* feature, ProError, ProAppData appData) {
    auto& data = *static_cast<ComponentVisitData*>(appData);
    VantrelPlugin& plugin = *VantrelPlugin::instance();

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
        visitSubassembly(plugin, data, model, fullPath, localPath, name, toTop, local, included, selected);

    // partInstances has no producer, so every occurrence of a part goes out in
    // full as its own group; the instance form stands ready for such a table.
    if (plugin.partInstances.count(key)) {
        emitInstances(plugin, key, name);
        return PRO_TK_NO_ERROR;
    }
    bool emitGeometry = shouldEmitGeometry(plugin.updateRun, changed, included, selected);
    exportSolid(plugin, model, fullPath, localPath, name, local, emitGeometry);
    return PRO_TK_NO_ERROR;
}

void emitInstances(VantrelPlugin& plugin, const std::string& key, const std::string& name) {
    auto row = plugin.partInstances[key];
    nvxScene_api& scene = *plugin.scene->scene();
    for (const auto& [record, ids] : row) {
        plugin.scene->begin_group(name);
        scene.set_flags(instanceGroupFlags);
        for (int id : ids) {
            scene.begin_object(name.c_str(), true);
            scene.begin_geometry("instance");
            scene.set_attribute("id", ATTR_INT, &id);
            scene.end_geometry();
            emitMaterial(plugin, name, record);
            scene.end_object();
        }
        plugin.scene->end_group();
    }
}
