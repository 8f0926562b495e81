#include "export/Cameras.h"

#include "export/MatrixMath.h"
#include "importers/sceneapi/LightCamera.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "toolkit/btk/TextConversion.h"

void viewOrientation(ProMdl model, ProView view, ProMatrix orientation) {
    ProMatrix viewMatrix = {};
    ProViewMatrixGet(model, view, viewMatrix);
    setIdentity(orientation);
    invertSimilarity(viewMatrix, orientation);
    orientation[3][0] = orientation[3][1] = orientation[3][2] = 0.0;
}

namespace {

void setUpCamera(nvx::LightCamera& camera, const ProMatrix orientation) {
    camera.set_position(0.0f, 0.0f, 2000.0f);
    camera.set_direction(0.0f, 0.0f, -1.0f);
    camera.set_up(0.0f, 1.0f, 0.0f);
    camera.set_fov(55.0f);
    camera.set_matrix(&orientation[0][0]);
    camera.set_projection(0);
}

// The one writer of a camera: an orthographic camera of the view's
// orientation, added to the scene and gone.
void writeCamera(nvx::nvxSceneapi_oo& scene, const char* name, const ProMatrix orientation) {
    nvx::LightCamera camera(name);
    setUpCamera(camera, orientation);
    scene.add(camera);
}

}  // namespace

void exportCameras(nvx::nvxSceneapi_oo& scene, ProMdl model) {
    ProMatrix orientation;
    viewOrientation(model, nullptr, orientation);
    writeCamera(scene, "Current Creo camera", orientation);

    ProLine* names = nullptr;
    int count = 0;
    ProViewNamesGet(model, &names, nullptr, &count);
    for (int i = 0; i < count && names; ++i) {
        ProView view = nullptr;
        ProViewNameToView(model, names[i], &view);
        viewOrientation(model, view, orientation);
        char name[128];
        btk::narrowToBuffer(names[i], name, sizeof name);
        writeCamera(scene, name, orientation);
    }
}
