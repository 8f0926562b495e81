#include "export/MaterialEmission.h"

#include <cstdio>

#include "toolkit/ProToolkit.h"
#include "toolkit/btk/TextConversion.h"

int materialComponent(double colour, float intensity) {
    int a = static_cast<int>(colour * 255.0 + 0.5);
    float b = static_cast<float>(a) * intensity;
    return static_cast<int>(static_cast<double>(b) + 0.5);
}

std::string materialKey(bool separateMaterials, const std::string& partName, const std::string& name, int red,
                        int green, int blue) {
    char key[1024];
    if (separateMaterials)
        std::snprintf(key, sizeof key, "%s:%s:%d:%d:%d", partName.c_str(), name.c_str(), red, green, blue);
    else
        std::snprintf(key, sizeof key, "%s:%d:%d:%d", name.c_str(), red, green, blue);
    for (char* c = key; *c; ++c)
        if (*c >= 'A' && *c <= 'Z') *c = static_cast<char>(*c - 'A' + 'a');
    return key;
}

namespace {

// The image's path for the shader: the host's full path if it finds one,
// else the record's own.
std::string texturePathForShader(const std::u16string& texture) {
    int flag = 0;
    ProPath found = {};
    const ProWchar* path = texture.c_str();
    if (ProTexturePathGet(texture.c_str(), 1, &flag, found) == PRO_TK_NO_ERROR) {
        found[sizeof found / sizeof found[0] - 1] = 0;
        path = found;
    }
    char narrow[1024];
    btk::narrowToBuffer(path, narrow, sizeof narrow);
    return narrow;
}

ShaderHandle* writeTextureShader(nvxScene_api& scene, const std::string& path) {
    const int project = 3, wrap = 1;
    const float black[3] = {0.0f, 0.0f, 0.0f};
    scene.begin_shader(nullptr, "texture_rgb");
    scene.set_attribute("project", ATTR_INT, &project);
    scene.set_attribute("wrap", ATTR_BOOL, &wrap);
    scene.set_attribute("default_color", ATTR_FLOAT3, black);
    scene.set_attribute("texture", ATTR_STRING, path.c_str());
    scene.end_shader();
    return scene.current_shader();
}

void beginAdvancedShader(nvxScene_api& scene, const float diffuse[3], const ShaderHandle* texture) {
    const float black[3] = {0.0f, 0.0f, 0.0f};
    const int on = 1, glossySamples = 9;
    const float roughness = 0.0f, ior = 1.5f, alpha = 1.0f;
    scene.begin_shader(nullptr, "nvx_advanced");
    scene.set_attribute("diffuse", ATTR_FLOAT3, diffuse);
    scene.set_attribute("specular", ATTR_FLOAT3, black);
    scene.set_attribute("fresnel", ATTR_BOOL, &on);
    scene.set_attribute("roughness", ATTR_FLOAT, &roughness);
    scene.set_attribute("ior", ATTR_FLOAT, &ior);
    scene.set_attribute("glossy", ATTR_BOOL, &on);
    scene.set_attribute("glossy_samples", ATTR_INT, &glossySamples);
    scene.set_attribute("alpha", ATTR_FLOAT, &alpha);
    scene.set_shader_attribute("diffuse", texture);
}

}  // namespace

void emitMaterial(nvxScene_api& scene, bool separateMaterials, const std::string& partName,
                  const MaterialRecord& record) {
    int red = materialComponent(record.red, record.intensity);
    int green = materialComponent(record.green, record.intensity);
    int blue = materialComponent(record.blue, record.intensity);
    std::string key = materialKey(separateMaterials, partName, record.name, red, green, blue);
    const float diffuse[3] = {static_cast<float>(red) / 255.0f, static_cast<float>(green) / 255.0f,
                              static_cast<float>(blue) / 255.0f};

    scene.begin_material(key.c_str(), true);
    ShaderHandle* texture = nullptr;
    if (!record.texture.empty()) texture = writeTextureShader(scene, texturePathForShader(record.texture));
    if (texture) {
        beginAdvancedShader(scene, diffuse, texture);
    } else {
        scene.begin_shader(nullptr, "nvx_diffuse");
        scene.set_attribute("diffuse", ATTR_FLOAT3, diffuse);
    }
    ShaderHandle* surface = scene.current_shader();
    scene.end_shader();
    scene.set_shader(0, surface);
    scene.end_material();
}
