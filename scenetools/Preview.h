#pragma once
// "vantrel-scene preview": a shaded picture of the scene drawn by the
// kernel's OpenGL visualization in an off-screen view. It needs an X
// display (Xvfb will do on a machine without one).
#include <filesystem>
#include <string>

#include "scenetools/SceneModel.h"

namespace scenetools {

struct PreviewRequest {
    std::filesystem::path output;  // .png
    int width = 1024;
    int height = 768;
    std::string camera;  // a camera's name; empty for the first camera
    bool fit = false;    // an isometric view of the whole model instead of a camera
};

// Draws the model in metres with +Y up, from the chosen camera's direction,
// framed to fit the model as the importer adjusts a camera, on a plain
// background; writes the picture. Answers a line that says from where and
// the pixel rectangle where the model's box falls: "camera \"FRONT\", model
// box at pixels X0 Y0 X1 Y1". Throws std::runtime_error when there is no
// display, no such camera or the picture can't be written.
std::string renderPreview(const Scene& scene, const std::filesystem::path& sceneFolder, const PreviewRequest& request);

// The background colour of the pictures, 0 to 255.
inline constexpr unsigned char previewBackground[3] = {40, 44, 52};

}  // namespace scenetools
