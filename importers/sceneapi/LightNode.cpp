#include "importers/sceneapi/LightNode.h"

#include <utility>

#include "importers/sceneapi/nvxSceneapi_oo.h"

namespace nvx {

void LightNode::reserved_node_a() {}

bool LightNode::reserved_node_b() { return false; }

LightModule::LightModule(std::string module_name) : module_name(std::move(module_name)) {}

void LightModule::write(nvxSceneapi_oo& layer) {
    layer.scene()->begin_load(module_name.c_str());
    write_body(layer);
    layer.scene()->end_load();
}

DefaultRTModule::DefaultRTModule() : LightModule("nvxrtopt.so") {}

ShaderHandle* DefaultRTModule::write_body(nvxSceneapi_oo& layer) {
    layer.set_attribute("import_mode", import_mode);
    layer.set_attribute("import_merge_groups", merge_groups);
    layer.set_attribute("import_merge_objects", merge_objects);
    layer.set_attribute("import_up_vector", up_vector);
    layer.set_attribute("meter_scale", meter_scale);
    layer.set_attribute("import_keep_original", keep_original);
    layer.set_attribute("import_center_geometry", center_geometry);
    layer.set_attribute("import_snap_to_ground", snap_to_ground);
    layer.set_attribute("import_adjust_camera", adjust_camera);
    layer.set_attribute("import_adjust_environment", adjust_environment);
    layer.set_attribute("ext", ext);
    return nullptr;
}

}  // namespace nvx
