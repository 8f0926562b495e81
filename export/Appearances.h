#pragma once
// The appearance of a surface or facet set, reduced to a MaterialRecord.
#include <string>

#include "export/MaterialRecord.h"
#include "toolkit/ProToolkit.h"

// Tries the surface's own appearance, then the solid's, then the host's
// default. `item` is null for a facet set; `modelProps` and `modelTexture`
// are null when the solid has no such record.
MaterialRecord resolveAppearance(ProGeomitem* item, const ProAsmcomppath& fullPath, const AppearanceProps* modelProps,
                                 const TextureProps* modelTexture);
