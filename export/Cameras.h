#pragma once
#include "toolkit/ProToolkit.h"

namespace nvx {
class nvxSceneapi_oo;
}

// The host's current view and its saved views, as orthographic cameras that
// keep only the view's orientation.
void exportCameras(nvx::nvxSceneapi_oo& scene, ProMdl model);

// A view's orientation: the inverse of its matrix without the translation.
void viewOrientation(ProMdl model, ProView view, ProMatrix orientation);
