#pragma once
// The user's settings, kept between runs of the host in the settings file.
#include <array>
#include <cstdint>
#include <string>

struct PluginSettings {
    double tessellationQuality = 0.2;  // 0 to 1
    std::int32_t upAxis = 1;           // index of the model's up axis, 0 to 5
    std::int32_t selectionMode = 0;    // 0 automatic, 1 manual
    bool promptForMechanism = false;   // ask for an animation file before each run
    std::u16string exportPath;         // the last exported scene file
    std::u16string fraPath;            // the last animation file
    bool includeNURBS = true;          // send exact surfaces beside the mesh
    bool separateMaterials = true;
    bool useAssemblyMaterials = false;
};

// The up axes as the settings dialog offers them, by index of upAxis.
struct UpAxisChoice {
    const char* name;    // the radio button's name
    const char16_t* label;
};
inline constexpr std::array<UpAxisChoice, 6> upAxisChoices = {{
    {"xaxis", u"x"}, {"yaxis", u"y"}, {"zaxis", u"z"}, {"nxaxis", u"-x"}, {"nyaxis", u"-y"}, {"nzaxis", u"-z"},
}};
