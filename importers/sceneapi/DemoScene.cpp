// vantrel-demo-scene OUT.vnz: writes a small scene through the object layer
// (the importer module, a camera, and a group with a textured cube) and says
// where it wrote and how many bytes.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <vector>

#include "importers/sceneapi/LightCamera.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/LightNode.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"

namespace {

struct Mesh {
    std::vector<nvx::Float3> vertices;
    std::vector<nvx::Float3> normals;
    std::vector<float> uvs;
    std::vector<int> triangles;
};

// A unit cube with four corners of its own on each face, so that each face
// has flat normals and a whole texture.
Mesh makeCube() {
    Mesh mesh;
    for (int axis = 0; axis < 3; ++axis) {
        for (float side : {-1.0f, 1.0f}) {
            const int u = (axis + 1) % 3;
            const int v = (axis + 2) % 3;
            const int first = static_cast<int>(mesh.vertices.size());
            for (int corner = 0; corner < 4; ++corner) {
                const float a = corner == 1 || corner == 2 ? 1.0f : 0.0f;
                const float b = corner >= 2 ? 1.0f : 0.0f;
                nvx::Float3 point{};
                point[axis] = side * 0.5f;
                point[u] = a - 0.5f;
                point[v] = b - 0.5f;
                nvx::Float3 normal{};
                normal[axis] = side;
                mesh.vertices.push_back(point);
                mesh.normals.push_back(normal);
                mesh.uvs.insert(mesh.uvs.end(), {a, b});
            }
            // Wind each face counter-clockwise seen from outside.
            if (side > 0) {
                mesh.triangles.insert(mesh.triangles.end(), {first, first + 1, first + 2, first, first + 2, first + 3});
            } else {
                mesh.triangles.insert(mesh.triangles.end(), {first, first + 2, first + 1, first, first + 3, first + 2});
            }
        }
    }
    return mesh;
}

void writeGeometry(nvxScene_api& scene, const Mesh& mesh) {
    const ArrayRecord vertices{mesh.vertices.data(), mesh.vertices.size()};
    const ArrayRecord normals{mesh.normals.data(), mesh.normals.size()};
    const ArrayRecord uvs{mesh.uvs.data(), mesh.uvs.size()};
    const ArrayRecord triangles{mesh.triangles.data(), mesh.triangles.size()};
    scene.begin_geometry("triangles");
    scene.set_attribute("vertices", ATTR_FLOAT3_ARRAY, &vertices);
    scene.set_attribute("normals", ATTR_FLOAT3_ARRAY, &normals);
    scene.set_attribute("uv_tex", ATTR_FLOAT_ARRAY, &uvs);
    scene.set_attribute("triangles", ATTR_INT_ARRAY, &triangles);
    scene.end_geometry();
}

// A checker texture fed into the diffuse colour of the renderer's standard
// surface shader.
void writeMaterial(nvxScene_api& scene) {
    const int project = 1;
    const int on = 1;
    const int off = 0;
    const float grey[3] = {0.8f, 0.8f, 0.8f};
    const float diffuse[3] = {0.7f, 0.45f, 0.2f};
    const float specular[3] = {0.04f, 0.04f, 0.04f};
    const float roughness = 0.35f;
    const float ior = 1.5f;
    const float alpha = 1.0f;
    const int glossySamples = 8;

    scene.begin_material("demo_wood", true);
    scene.begin_shader(nullptr, "texture_rgb");
    scene.set_attribute("project", ATTR_INT, &project);
    scene.set_attribute("wrap", ATTR_BOOL, &on);
    scene.set_attribute("default_color", ATTR_FLOAT3, grey);
    scene.set_attribute("texture", ATTR_STRING, "checker.png");
    ShaderHandle* texture = scene.current_shader();
    scene.end_shader();

    scene.begin_shader(nullptr, "nvx_advanced");
    scene.set_attribute("diffuse", ATTR_FLOAT3, diffuse);
    scene.set_attribute("specular", ATTR_FLOAT3, specular);
    scene.set_attribute("fresnel", ATTR_BOOL, &on);
    scene.set_attribute("roughness", ATTR_FLOAT, &roughness);
    scene.set_attribute("ior", ATTR_FLOAT, &ior);
    scene.set_attribute("glossy", ATTR_BOOL, &off);
    scene.set_attribute("glossy_samples", ATTR_INT, &glossySamples);
    scene.set_attribute("alpha", ATTR_FLOAT, &alpha);
    scene.set_shader_attribute("diffuse", texture);
    ShaderHandle* surface = scene.current_shader();
    scene.end_shader();
    scene.set_shader(SHADER_SURFACE, surface);
    scene.end_material();
}

void writeDemoScene(nvx::nvxSceneapi_oo& layer) {
    nvx::DefaultRTModule module;
    module.set_meter_scale(0.001f);
    layer.add(module);

    layer.begin_group("demo");
    nvx::LightCamera camera("front");
    camera.set_position(2.0f, 1.5f, 3.0f);
    camera.set_direction(-0.5f, -0.37f, -0.78f);
    camera.set_fov(45.0f);
    layer.add(camera);

    nvxScene_api& scene = *layer.scene();
    layer.begin_group("cube");
    scene.begin_object("cube_1", true);
    writeGeometry(scene, makeCube());
    writeMaterial(scene);
    scene.end_object();
    const double lift[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0.5, 0, 1};
    layer.apply_transform(lift);
    layer.set_flags(1024);
    layer.end_group();
    layer.end_group();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUT.vnz\n", argv[0]);
        return 2;
    }
    try {
        {
            nvx::LightFileFactory factory(argv[1]);
            nvx::nvxSceneapi_oo layer(factory);
            writeDemoScene(layer);
        }
        std::error_code error;
        const auto size = std::filesystem::file_size(argv[1], error);
        std::printf("wrote demo scene to %s (%llu bytes)\n", argv[1],
                    error ? 0ULL : static_cast<unsigned long long>(size));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "vantrel-demo-scene: %s\n", failure.what());
        return 1;
    }
    return 0;
}
