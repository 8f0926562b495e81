#pragma once
// What an Update sends again: components whose model changed since the last
// run, and, in manual mode, the components that the user picked.
#include "export/ComponentVisitData.h"

class VantrelPlugin;

// At the start of an Update: asks for the user's picks in manual mode on an
// assembly, and marks the top as picked if the top itself was picked.
void selectForUpdate(VantrelPlugin& plugin, int mode, ComponentVisitData& visitData);

// Compares the model's version stamp with the one last sent on this path and
// records the new one. A component met for the first time counts as changed.
bool componentChanged(VersionStamps& versionStamps, const ProAsmcomppath& fullPath, ProMdl model);

// Whether the component counts as picked in an Update in manual mode: picked
// itself on this very path, or lying under a picked assembly.
bool componentSelected(const VantrelPlugin& plugin, const ProAsmcomppath& fullPath, bool parentSelected);

// Whether a component's geometry goes out in this run.
bool shouldEmitGeometry(bool updateRun, bool changed, bool included, bool selected);
