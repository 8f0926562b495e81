#pragma once
// Content for the demo program and the tests of the file road: a triangle
// mesh and a textured material written with the same calls as the exporter.
#include <string>
#include <vector>

#include "importers/sceneapi/nvxScene_api.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"

namespace demo {

struct TriangleMesh {
    std::vector<nvx::Float3> vertices;
    std::vector<nvx::Float3> normals;
    std::vector<float> uvs;
    std::vector<int> triangles;
};

// A colour texture feeding the diffuse colour of the renderer's standard
// surface shader.
struct TexturedMaterial {
    std::string name;
    std::string texture;
    float colour[3];
    float specular[3];
    float roughness;
    float ior;
    int glossy_samples;
};

// A "triangles" geometry block.
void writeGeometry(nvxScene_api& scene, const TriangleMesh& mesh);

// A material block, to be written inside an object.
void writeMaterial(nvxScene_api& scene, const TexturedMaterial& material);

}  // namespace demo
