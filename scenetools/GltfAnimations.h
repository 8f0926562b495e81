#pragma once
// The scene's animation blocks as glTF animations, added to the JSON that
// the kernel's writer made (it writes none): one animation for each block,
// with translation, rotation and scale samplers on the group's node, times
// in seconds. The samples go at the end of the binary buffer.
#include <rapidjson/document.h>

#include <string>

#include "scenetools/SceneModel.h"

namespace scenetools {

struct Placement {
    std::array<double, 3> translation{0, 0, 0};
    std::array<double, 4> rotation{0, 0, 0, 1};  // quaternion x y z w
    std::array<double, 3> scale{1, 1, 1};
};

// A matrix for row vectors, rotation times scale (a negative determinant
// goes to the X scale) plus translation, taken apart.
Placement decompose(const Matrix& matrix);

// Answers how many animations were added; none if the glTF's nodes can't be
// matched to the scene's groups, which the caller notes. `bin` is the data
// of buffer 0, which grows.
size_t addAnimations(rapidjson::Document& document, std::string& bin, const Scene& scene);

}  // namespace scenetools
