#pragma once
// A picture of a saved scene, drawn by the scene tools' program beside this
// one ("vantrel-scene preview"), which needs a display to draw on.
#include <filesystem>
#include <string>

namespace renderer {

// Starts the drawing of FILE.png from the named camera (the first camera if
// empty) and returns at once. Answers false, starting nothing, when there is
// no display or no scene tools' program beside this one.
bool drawPictureAside(const std::filesystem::path& scene, const std::string& camera);

}  // namespace renderer
