#pragma once
// The appearance of a surface or facet set, reduced to a MaterialRecord.
#include <string>

#include "export/MaterialRecord.h"
#include "toolkit/ProToolkit.h"

// With `useAssemblyMaterials`, first what the assembly shows for the surface
// in its component path; then the surface's own appearance, the solid's, and
// the host's default. `item` is null for a facet set; `modelProps` and
// `modelTexture` are null when the solid has no such record.
MaterialRecord resolveAppearance(bool useAssemblyMaterials, ProGeomitem* item, const ProAsmcomppath& fullPath, const AppearanceProps* modelProps,
                                 const TextureProps* modelTexture);
