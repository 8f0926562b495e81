#pragma once
// The walk over an assembly's component features, mirrored in the scene: a
// sub-assembly becomes a group, a part goes to exportSolid.
#include <string>

#include "export/ComponentVisitData.h"

// The action of the feature visit; `data` is the ComponentVisitData of the
// assembly being visited. Answers 0, so the visit goes on.
ProError visitComponent(ProFeature* feature, ProError status, ProAppData data);

// Writes the instances of a part recorded in the run's partInstances under `key`.
void emitInstances(RunContext& run, const std::string& key, const std::string& name);
