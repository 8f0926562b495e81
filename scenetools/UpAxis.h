#pragma once
// The importer's up axis and metre scale, applied the way a viewer that
// expects +Y up in metres needs them.
#include <array>
#include <string>

#include "scenetools/SceneModel.h"

namespace scenetools {

// "+x", "+y", "+z", "-x", "-y", "-z" for the codes 0 to 5; any other code is
// taken as +Y, the importer's default, and named "N (taken as +y)".
std::string describeUpAxis(int code);

// The rotation that turns the scene's up axis into +Y, as a matrix for row
// vectors. +Z up turns about X (Z to Y, Y to -Z); +X up turns about Z (X to
// Y, Y to -X); a negative axis turns the other way, -Y about X by a half turn.
Matrix upRotation(int code);

// The scene's world coordinates to metres with +Y up.
Matrix sceneToViewer(const Scene& scene);

}  // namespace scenetools
