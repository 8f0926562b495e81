#include "export/UpdateTracking.h"

#include "plugin/core/VantrelPlugin.h"

void selectForUpdate(VantrelPlugin& plugin, int mode, ComponentVisitData& visitData) {
    plugin.selection = nullptr;
    plugin.selectionCount = 0;
    if (plugin.updateRun && plugin.settings.selectionMode == 1 && mode == PRO_MODE_ASSEMBLY)
        ProSelect("prt_or_asm", -1, nullptr, nullptr, nullptr, nullptr, &plugin.selection, &plugin.selectionCount);
    visitData.selected = false;
    for (int i = 0; i < plugin.selectionCount && plugin.selection; ++i) {
        ProAsmcomppath path{};
        ProSelectionAsmcomppathGet(plugin.selection[i], &path);
        if (path.componentIdCount == 0) visitData.selected = true;
    }
}

bool componentChanged(VersionStamps& versionStamps, const ProAsmcomppath& fullPath, ProMdl model) {
    bool changed = true;
    ProMdlVerstamp stamp{};
    if (ProMdlVerstampGet(model, &stamp) == PRO_TK_NO_ERROR) {
        auto row = versionStamps.find(fullPath);
        if (row != versionStamps.end()) changed = !ProVerstampEqual(row->second, stamp);
    }
    versionStamps[fullPath] = stamp;
    return changed;
}

bool componentSelected(const VantrelPlugin& plugin, const ProAsmcomppath& fullPath, bool parentSelected) {
    bool selected = parentSelected;
    if (!(plugin.updateRun && plugin.settings.selectionMode == 1)) return selected;
    for (int i = 0; i < plugin.selectionCount && plugin.selection; ++i) {
        ProAsmcomppath picked{};
        ProSelectionAsmcomppathGet(plugin.selection[i], &picked);
        if (sameComponentPath(picked, fullPath)) selected = true;
    }
    return selected;
}

bool shouldEmitGeometry(bool updateRun, bool changed, bool included, bool selected) {
    if (!updateRun || changed) return included;
    return included && selected;
}
