#pragma once
// The scene's cameras as glTF cameras and camera nodes, added to a glTF JSON
// text that the kernel's writer made (it writes no cameras).
#include <rapidjson/document.h>

#include "scenetools/SceneModel.h"

namespace scenetools {

struct CameraPlacement {
    std::array<double, 3> eye{};
    std::array<double, 4> rotation{0, 0, 0, 1};  // quaternion x y z w: local -Z looks, +Y is up
    double distance = 1;                         // from the eye to the model's centre
    double radius = 1;                           // of the sphere round the model's box
};

// Where a camera stands in metres with +Y up: looking along its direction
// and up vector as its transforms turn them, far enough back that the
// model's box fills the view.
CameraPlacement placeCamera(const Scene& scene, const Camera& camera, const Bounds& viewerBounds);

// Adds "cameras", one node for each camera and those nodes to the default
// scene.
void addCameras(rapidjson::Document& document, const Scene& scene);

}  // namespace scenetools
