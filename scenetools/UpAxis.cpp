#include "scenetools/UpAxis.h"

namespace scenetools {

namespace {

bool known(int code) { return code >= 0 && code <= 5; }

}  // namespace

std::string describeUpAxis(int code) {
    static constexpr const char* names[] = {"+x", "+y", "+z", "-x", "-y", "-z"};
    if (known(code)) return names[code];
    return std::to_string(code) + " (taken as +y)";
}

Matrix upRotation(int code) {
    // Rows are the images of X, Y and Z.
    switch (code) {
        case 0:
            return {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        case 2:
            return {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1};
        case 3:
            return {0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        case 4:
            return {1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1};
        case 5:
            return {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
        default:
            return identityMatrix;
    }
}

Matrix sceneToViewer(const Scene& scene) {
    Matrix result = upRotation(scene.upAxis);
    const double metres = 1.0 / scene.meterScale;
    for (int i = 0; i < 12; ++i) result[i] *= metres;
    return result;
}

}  // namespace scenetools
