#include "importers/sceneapi/DemoContent.h"

namespace demo {

void writeGeometry(nvxScene_api& scene, const TriangleMesh& mesh) {
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

// The texture shader is finished first, then bound as the diffuse parameter
// of the surface shader.
void writeMaterial(nvxScene_api& scene, const TexturedMaterial& material) {
    const int project = 1;
    const int on = 1;
    const int off = 0;
    const float alpha = 1.0f;
    scene.begin_material(material.name.c_str(), true);
    scene.begin_shader(nullptr, "texture_rgb");
    scene.set_attribute("project", ATTR_INT, &project);
    scene.set_attribute("wrap", ATTR_BOOL, &on);
    scene.set_attribute("default_color", ATTR_FLOAT3, material.colour);
    scene.set_attribute("texture", ATTR_STRING, material.texture.c_str());
    ShaderHandle* texture = scene.current_shader();
    scene.end_shader();

    scene.begin_shader(nullptr, "nvx_advanced");
    scene.set_attribute("diffuse", ATTR_FLOAT3, material.colour);
    scene.set_attribute("specular", ATTR_FLOAT3, material.specular);
    scene.set_attribute("fresnel", ATTR_BOOL, &on);
    scene.set_attribute("roughness", ATTR_FLOAT, &material.roughness);
    scene.set_attribute("ior", ATTR_FLOAT, &material.ior);
    scene.set_attribute("glossy", ATTR_BOOL, &off);
    scene.set_attribute("glossy_samples", ATTR_INT, &material.glossy_samples);
    scene.set_attribute("alpha", ATTR_FLOAT, &alpha);
    scene.set_shader_attribute("diffuse", texture);
    ShaderHandle* surface = scene.current_shader();
    scene.end_shader();
    scene.set_shader(SHADER_SURFACE, surface);
    scene.end_material();
}

}  // namespace demo
