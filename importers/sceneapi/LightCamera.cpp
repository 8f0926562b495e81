#include "importers/sceneapi/LightCamera.h"

#include <algorithm>
#include <utility>

#include "importers/sceneapi/nvxSceneapi_oo.h"

namespace nvx {

LightCamera::LightCamera(std::string name) : name(std::move(name)) {}

void LightCamera::set_matrix(const double m[16]) {
    std::copy(m, m + 16, matrix.begin());
    has_matrix = true;
}

void LightCamera::write(nvxSceneapi_oo& layer) {
    nvxScene_api* scene = layer.scene();
    scene->begin_camera(name.c_str());
    ShaderHandle* environment = write_body(layer);
    scene->set_attribute("reflection map", ATTR_SHADER, &environment);
    layer.set_attribute("position", position.data());
    layer.set_attribute("direction", direction.data());
    if (has_look_at) layer.set_attribute("look_at", look_at.data());
    layer.set_attribute("up", up.data());
    if (near_clip > 0 && far_clip > 0 && far_clip > near_clip) {
        const float clipping[2] = {near_clip, far_clip};
        scene->set_attribute("clipping", ATTR_FLOAT2, clipping);
    }
    if (projection == ORTHOGRAPHIC) {
        layer.set_attribute("projection", std::string("orthographic"));
    } else if (projection == PERSPECTIVE) {
        layer.set_attribute("projection", std::string("perspective"));
        if (fov_kind == FOV_ANGLE) {
            layer.set_attribute("fov", fov);
        } else if (fov_kind == FOV_FOUR_ANGLES) {
            scene->set_attribute("fov4", ATTR_FOV4, fov4.data());
        }
    }
    if (transform_node) {
        layer.add(*transform_node);
    } else if (has_matrix) {
        layer.apply_transform(matrix.data());
    }
    scene->end_camera();
}

ShaderHandle* LightCamera::write_body(nvxSceneapi_oo& layer) {
    nvxScene_api* scene = layer.scene();
    scene->begin_shader(nullptr, "nvx_envmap");
    layer.set_attribute("texture", std::string("startup.hdr"));
    layer.set_attribute("format", 3);
    layer.set_attribute("radius", 25.0f);
    ShaderHandle* environment = scene->current_shader();
    layer.end_shader();
    return environment;
}

}  // namespace nvx
