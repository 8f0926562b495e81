#pragma once
#include "toolkit/ProToolkit.h"

// Model units in one metre, from the name of the model's length unit.
float meterScaleOf(ProMdl model);

// The scale for a length unit's name; the comparison is exact in case.
float meterScaleOfUnitName(const char16_t* unitName);
