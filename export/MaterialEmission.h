#pragma once
// Writes a MaterialRecord as a material block of the open object.
#include <string>

#include "export/MaterialRecord.h"
#include "importers/sceneapi/nvxScene_api.h"


// The 0..255 component that a colour and a diffuse coefficient give, in the
// mix of precisions that the application's keys rely on.
int materialComponent(double colour, float intensity);

// The material's key: lower case, with the part's name in front when
// materials are kept apart per part.
std::string materialKey(bool separateMaterials, const std::string& partName, const std::string& name, int red,
                        int green, int blue);

// The material block of the open object: its key, then a diffuse shader, or
// a texture shader under an advanced one when the record has a texture.
void emitMaterial(nvxScene_api& scene, bool separateMaterials, const std::string& partName,
                  const MaterialRecord& record);
