#pragma once
// What the feature visit of an assembly carries from level to level.
#include <map>

#include "plugin/core/VantrelPlugin.h"
#include "toolkit/ProAsmcomppathOrder.h"
#include "toolkit/ProToolkit.h"

struct RunContext;

// Per-component rules of the chosen simplified representation.
using RepresentationItems = std::map<ProAsmcomppath, SimprepAction, ProAsmcomppathLess>;

struct ComponentVisitData {
    RunContext* run = nullptr;
    ProAsmcomppath path{};               // from the top model to the assembly being visited
    ProMdl parentModel = nullptr;        // the assembly being visited
    VersionStamps* versionStamps = nullptr;
    bool included = false;               // the assembly belongs to the chosen representation
    bool selected = false;               // the assembly counts as picked by the user
    int defaultAction = 0;               // the representation's default action
    RepresentationItems* representationItems = nullptr;
    ProMatrix parentInverse{};           // inverse of the assembly-to-top transform
};
