// vantrel-demo-scene OUT.vnz: writes a small scene through the object layer
// (the importer module, a camera, and a group with a textured cube) and says
// where it wrote and how many bytes.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "importers/sceneapi/DemoContent.h"
#include "importers/sceneapi/LightCamera.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/LightNode.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"

namespace {

// A unit cube with four corners of its own on each face, so that each face
// has flat normals and a whole texture.
demo::TriangleMesh makeCube() {
    demo::TriangleMesh mesh;
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

const demo::TexturedMaterial CHECKER{"demo_checker", "checker.png", {0.7f, 0.45f, 0.2f}, {0.04f, 0.04f, 0.04f},
                                     0.35f, 1.5f, 8};

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
    demo::writeGeometry(scene, makeCube());
    demo::writeMaterial(scene, CHECKER);
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
        const std::string path = argv[1];
        if (path == "-") {
            // Standard output carries the scene; this line goes to standard error.
            std::printf("wrote demo scene to standard output\n");
        } else {
            std::error_code error;
            const auto size = std::filesystem::file_size(path, error);
            std::printf("wrote demo scene to %s (%llu bytes)\n", path.c_str(),
                        error ? 0ULL : static_cast<unsigned long long>(size));
        }
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "vantrel-demo-scene: %s\n", failure.what());
        return 1;
    }
    return 0;
}
