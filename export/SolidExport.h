#pragma once
// One solid as nodes of the scene: its surfaces as one mesh per appearance,
// its facet sets as one further mesh.
#include <string>

#include "toolkit/ProToolkit.h"

struct RunContext;

// Sends the solid as a group named `name` with the transform `matrix`; the
// geometry goes out only if `emitGeometry`. A solid with neither surfaces
// nor facets writes nothing.
void exportSolid(RunContext& run, ProSolid model, const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath,
                 const std::string& name, const ProMatrix matrix, bool emitGeometry);
