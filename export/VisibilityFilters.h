#pragma once
// What stays out of a rendering: suppressed and unloaded components, blanked
// layers, inactive geometry, hidden and backup quilts, cosmetic threads.
// Each filter answers 0 to visit the item and -7 to pass over it.
#include "toolkit/ProToolkit.h"

// `data` is the ComponentVisitData of the assembly that owns the feature.
ProError filterComponent(ProFeature* feature, ProAppData data);
// `data` is the SolidGeometry of the solid that owns the surface or quilt.
ProError filterSurface(ProSurface surface, ProAppData data);
ProError filterQuilt(ProQuilt quilt, ProAppData data);

