#pragma once
// The narrow form of a model's name, as the scene's groups and objects carry
// it. Every place that names a model in the scene takes it from here, so the
// top group, a component's group and a part's objects always agree.
#include <string>

#include "toolkit/ProToolkit.h"

// The model's bare name in the system code page, at most 259 bytes; a
// character that the code page can't hold is left out.
std::string modelNameOf(ProMdl model);
