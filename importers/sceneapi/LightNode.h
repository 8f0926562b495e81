#pragma once
// Scene nodes: things that write themselves into an open scene through the
// object layer. A node is built, configured and added; it may be added twice.
#include <string>

#include "importers/sceneapi/nvxScene_api.h"

namespace nvx {

class nvxSceneapi_oo;

class LightNode {
public:
    virtual void write(nvxSceneapi_oo& layer) = 0;
    virtual void reserved_node_a();
    virtual bool reserved_node_b();
    // Writes what the node holds; a node that makes a shader answers its handle.
    virtual ShaderHandle* write_body(nvxSceneapi_oo& layer) = 0;

protected:
    // Nodes live on the stack of the code that adds them and are never
    // deleted through this base.
    ~LightNode() = default;
};

// The settings of a named importer module, written as a load block.
class LightModule : public LightNode {
public:
    explicit LightModule(std::string module_name);
    void write(nvxSceneapi_oo& layer) override;

protected:
    ~LightModule() = default;

private:
    std::string module_name;
};

// The options of the renderer's default importer module.
class DefaultRTModule : public LightModule {
public:
    DefaultRTModule();
    ShaderHandle* write_body(nvxSceneapi_oo& layer) override;

    void set_import_mode(bool on) { import_mode = on; }
    void set_merge_groups(bool on) { merge_groups = on; }
    void set_merge_objects(bool on) { merge_objects = on; }
    void set_up_vector(int axis) { up_vector = axis; }
    void set_meter_scale(float scale) { meter_scale = scale; }
    void set_keep_original(bool on) { keep_original = on; }
    void set_snap_to_ground(bool on) { snap_to_ground = on; }
    void set_adjust_camera(bool on) { adjust_camera = on; }
    void set_adjust_environment(bool on) { adjust_environment = on; }
    void set_ext(bool on) { ext = on; }

private:
    bool import_mode = true;
    bool merge_groups = true;
    bool merge_objects = true;
    int up_vector = 0;
    float meter_scale = 1.0f;
    bool keep_original = false;
    bool center_geometry = true;
    bool snap_to_ground = false;
    bool adjust_camera = true;
    bool adjust_environment = true;
    bool ext = true;
};

}  // namespace nvx
