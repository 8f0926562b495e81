#include "importers/sceneapi/nvxSceneapi_oo.h"

#include <cstdio>
#include <stdexcept>

#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/LightNode.h"

namespace nvx {

nvxSceneapi_oo::nvxSceneapi_oo(LightFactory& factory) : factory(&factory) {
    set_scene(factory.scene());
    if (!scene_api) return;
    factory.begin(*this);
    char banner[128];
    std::snprintf(banner, sizeof banner, "Vantrel SceneApi oo %d.%d.%d  (built %s)", LIBRARY_MAJOR, LIBRARY_MINOR,
                  LIBRARY_BUILD, BUILD_STAMP);
    scene_api->print_message(banner);
    scene_api->set_version(FORMAT_VERSION);
}

nvxSceneapi_oo::~nvxSceneapi_oo() = default;

int nvxSceneapi_oo::set_scene(nvxScene_api* scene) {
    scene_api = scene;
    shader_id = 0;
    object_id = 0;
    return 0;
}

int nvxSceneapi_oo::next_id() {
    ++object_id;
    scene_api->set_id(static_cast<unsigned>(object_id));
    return object_id;
}

void nvxSceneapi_oo::add(LightNode& node) { node.write(*this); }

void nvxSceneapi_oo::progress(const std::string& text, float fraction) { scene_api->progress(text.c_str(), fraction); }

void nvxSceneapi_oo::begin_group(const std::string& name) { scene_api->begin_group(name.c_str(), true); }

void nvxSceneapi_oo::end_group() { scene_api->end_group(); }

int nvxSceneapi_oo::define_shader(const std::string& type) {
    ++shader_id;
    scene_api->define_shader(type.c_str(), shader_id);
    return shader_id;
}

void nvxSceneapi_oo::end_shader() { scene_api->end_shader(); }

void nvxSceneapi_oo::set_attribute(const std::string&, const char*) {
    throw std::invalid_argument("const char * are deprecated");
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const std::string& value) {
    scene_api->set_attribute(name.c_str(), ATTR_STRING, value.c_str());
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const float* three_floats) {
    scene_api->set_attribute(name.c_str(), ATTR_FLOAT3, three_floats);
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const double* three_doubles) {
    scene_api->set_attribute(name.c_str(), ATTR_DOUBLE3, three_doubles);
}

void nvxSceneapi_oo::set_attribute(const std::string& name, double value) {
    scene_api->set_attribute(name.c_str(), ATTR_DOUBLE, &value);
}

void nvxSceneapi_oo::set_attribute(const std::string& name, float value) {
    scene_api->set_attribute(name.c_str(), ATTR_FLOAT, &value);
}

void nvxSceneapi_oo::set_attribute(const std::string& name, int value) {
    scene_api->set_attribute(name.c_str(), ATTR_INT, &value);
}

void nvxSceneapi_oo::set_attribute(const std::string& name, bool value) {
    const int word = value ? 1 : 0;
    scene_api->set_attribute(name.c_str(), ATTR_BOOL, &word);
}

void nvxSceneapi_oo::set_array(const std::string& name, int type, const void* data, std::size_t count) {
    const ArrayRecord record{data, count};
    scene_api->set_attribute(name.c_str(), type, &record);
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const std::vector<Matrix>& matrices) {
    set_array(name, ATTR_MATRIX_ARRAY, matrices.data(), matrices.size());
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const std::vector<int>& values) {
    set_array(name, ATTR_INT_ARRAY, values.data(), values.size());
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const std::vector<float>& values) {
    set_array(name, ATTR_FLOAT_ARRAY, values.data(), values.size());
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const std::vector<double>& values) {
    set_array(name, ATTR_DOUBLE_ARRAY, values.data(), values.size());
}

void nvxSceneapi_oo::set_attribute(const std::string& name, const std::vector<Float3>& triples) {
    set_array(name, ATTR_FLOAT3_ARRAY, triples.data(), triples.size());
}

void nvxSceneapi_oo::apply_transform(const double m[16]) { apply_transform(m, false); }

void nvxSceneapi_oo::apply_transform(const double m[16], bool absolute) {
    if (absolute) {
        scene_api->set_transform(m);
    } else {
        scene_api->apply_transform(m);
    }
}

void nvxSceneapi_oo::set_flags(unsigned flags) { scene_api->set_flags(flags); }

nvxScene_api* nvxSceneapi_oo::scene() { return scene_api; }

}  // namespace nvx
