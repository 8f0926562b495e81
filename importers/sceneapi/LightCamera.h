#pragma once
// A camera node with its default environment. It must be added at group
// level: while an object or another camera is open the camera head is
// refused and its statements land in the block in progress.
#include <array>
#include <memory>
#include <string>

#include "importers/sceneapi/LightNode.h"

namespace nvx {

class LightCamera : public LightNode {
public:
    enum Projection : int { ORTHOGRAPHIC = 0, PERSPECTIVE = 1 };
    enum FovKind : int { FOV_ANGLE = 0, FOV_FOUR_ANGLES = 1 };

    explicit LightCamera(std::string name);

    void write(nvxSceneapi_oo& layer) override;
    // Describes the default environment and answers its shader handle.
    ShaderHandle* write_body(nvxSceneapi_oo& layer) override;

    void set_position(float x, float y, float z) { position = {x, y, z}; }
    void set_direction(float x, float y, float z) { direction = {x, y, z}; }
    void set_up(float x, float y, float z) { up = {x, y, z}; }
    void set_fov(float angle) {
        fov = angle;
        fov_kind = FOV_ANGLE;
    }
    void set_matrix(const double m[16]);
    void set_projection(int kind) { projection = kind; }

    std::string name;
    std::array<double, 3> position{0, 0, 0};
    std::array<double, 3> direction{0, 0, -1};
    // Written only if has_look_at.
    std::array<double, 3> look_at{0, 0, -1};
    std::array<double, 3> up{0, 1, 0};
    float fov = 60.0f;
    std::array<float, 4> fov4{};
    // Clipping is written only when both are above 0 and far is above near.
    float near_clip = -1.0f;
    float far_clip = -1.0f;
    // Added in place of the matrix when set.
    std::shared_ptr<LightNode> transform_node;
    bool has_matrix = false;
    bool has_look_at = false;
    std::array<double, 16> matrix{};
    int projection = PERSPECTIVE;
    int fov_kind = FOV_ANGLE;
};

}  // namespace nvx
