#pragma once
// The walk over an assembly's component features, mirrored in the scene: a
// sub-assembly becomes a group, a part goes to exportSolid.
#include <string>

#include "export/ComponentVisitData.h"

class VantrelPlugin;

// The action of the feature visit; `data` is the ComponentVisitData of the
// assembly being visited. Always answers 0, so the visit goes on.
ProError visitComponent(ProFeature* feature, ProError status, ProAppData data);

// Writes the instances of a part recorded in partInstances under `key`.
void emitInstances(VantrelPlugin& plugin, const std::string& key, const std::string& name);

enum : int { ASSEMBLY_GROUP_FLAGS = 32768 };
