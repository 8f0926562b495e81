#include "export/Cameras.h"

#include "export/MatrixMath.h"
#include "importers/sceneapi/LightCamera.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/VantrelPlugin.h"
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

}  // namespace

void exportCameras(VantrelPlugin& plugin, ProMdl model) {
    ProMatrix orientation;
    viewOrientation(model, nullptr, orientation);
    nvx::LightCamera current("Current Creo camera");
    setUpCamera(current, orientation);
    plugin.scene->add(current);

    ProLine* names = nullptr;
    int count = 0;
    ProViewNamesGet(model, &names, nullptr, &count);
    for (int i = 0; i < count && names; ++i) {
        ProView view = nullptr;
        ProViewNameToView(model, names[i], &view);
        viewOrientation(model, view, orientation);
        char name[128];
        btk::narrowToBuffer(names[i], name, sizeof name);
        nvx::LightCamera saved(name);
        setUpCamera(saved, orientation);
        plugin.scene->add(saved);
    }
}
