#pragma once
// One solid as a node of the scene: its surfaces as one mesh per appearance,
// its facet sets as one further mesh.
#include <string>

#include "toolkit/ProToolkit.h"

class VantrelPlugin;

// Sends the solid as a group named `name` with the transform `matrix`; the
// geometry goes out only if `emitGeometry`. A solid with neither surfaces
// nor facets writes nothing.
void exportSolid(VantrelPlugin& plugin, ProSolid model, const ProAsmcomppath& fullPath,
                 const ProAsmcomppath& localPath, std::string name, const ProMatrix matrix, bool emitGeometry);

// The narrow form of a model's name, as the scene's objects carry it.
std::string modelNameOf(ProMdl model);
