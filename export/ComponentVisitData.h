#pragma once
// What the feature visit of an assembly carries from level to level.
#include <map>

#include "toolkit/ProAsmcomppathOrder.h"
#include "toolkit/ProToolkit.h"

// Per-component rules of the chosen simplified representation.
using RepresentationItems = std::map<ProAsmcomppath, SimprepAction, ProAsmcomppathLess>;
// The version of each component's model as last sent, by full path.
using VersionStamps = std::map<ProAsmcomppath, ProMdlVerstamp, ProAsmcomppathLess>;

struct ComponentVisitData {
    ProAsmcomppath path{};               // from the top model to the assembly being visited
    ProMdl parentModel = nullptr;        // the assembly being visited
    VersionStamps* versionStamps = nullptr;
    bool included = false;               // the assembly belongs to the chosen representation
    bool selected = false;               // the assembly counts as picked by the user
    int defaultAction = 0;               // the representation's default action
    RepresentationItems* representationItems = nullptr;
    ProMatrix parentInverse{};           // inverse of the assembly-to-top transform
};
