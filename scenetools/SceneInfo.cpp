#include "scenetools/SceneInfo.h"

#include <cstdio>

#include "scenereader/SceneChecks.h"
#include "scenetools/UpAxis.h"

namespace scenetools {

namespace {

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

std::string counted(size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string describeBounds(const Bounds& bounds) {
    if (bounds.empty) return "bounding box: none (no mesh)";
    std::string text = "bounding box (metres, +y up): ";
    for (int i = 0; i < 3; ++i) text += (i ? " " : "") + number(bounds.min[i]);
    text += " to";
    for (int i = 0; i < 3; ++i) text += " " + number(bounds.max[i]);
    text += ", size";
    for (int i = 0; i < 3; ++i) text += (i ? " x " : " ") + number(bounds.max[i] - bounds.min[i]);
    return text;
}

std::string describeMaterial(const Material& material) {
    std::string text = "material \"" + material.name + "\" " + number(material.diffuse[0]) + " " +
                       number(material.diffuse[1]) + " " + number(material.diffuse[2]);
    if (!material.texture.empty()) text += " texture \"" + material.texture + "\"";
    return text;
}

void addNode(const Node& node, size_t depth, std::string& text) {
    const std::string indent(2 * depth, ' ');
    text += indent + "group \"" + node.name + "\"";
    if (node.hasFlags) text += " (" + describeFlags(node.flags) + ")";
    text += "\n";
    for (const Mesh& mesh : node.meshes) {
        text += indent + "  object \"" + mesh.name + "\": " + counted(mesh.triangleCount(), "triangle", "triangles") +
                ", " + describeMaterial(mesh.material) + "\n";
    }
    if (node.exactSurfaces)
        text += indent + "  " + counted(node.exactSurfaces, "exact surface", "exact surfaces") + "\n";
    if (node.animations) text += indent + "  " + counted(node.animations, "animation", "animations") + "\n";
    for (const Node& child : node.children) addNode(child, depth + 1, text);
}

}  // namespace

std::string describeFlags(uint32_t flags) {
    static constexpr struct {
        uint32_t bit;
        const char* word;
    } words[] = {{1024, "part"}, {32768, "assembly"}, {65536, "exact surfaces"}};
    std::string text;
    for (const auto& word : words) {
        if (!(flags & word.bit)) continue;
        text += (text.empty() ? "" : ", ") + std::string(word.word);
        flags &= ~word.bit;
    }
    if (flags) {
        char rest[16];
        std::snprintf(rest, sizeof rest, "0x%x", flags);
        text += (text.empty() ? "" : ", ") + std::string(rest);
    }
    return text.empty() ? "no flags" : text;
}

std::string describeScene(const scenereader::Document& document, const Scene& scene) {
    const scenereader::SceneSummary summary = scenereader::summarize(document);
    std::string text = scenereader::describeSummary(summary) + "\n";
    text += "exact surfaces: " + std::to_string(summary.nurbsObjects) + "\n";
    text += "materials: " + std::to_string(summary.distinctMaterials) + " distinct in " +
            counted(summary.materials, "block", "blocks") + "\n";
    text += "cameras: " + std::to_string(summary.cameras);
    for (size_t i = 0; i < scene.cameras.size(); ++i) text += (i ? ", \"" : " (\"") + scene.cameras[i].name + "\"";
    text += scene.cameras.empty() ? "\n" : ")\n";
    text += "animation blocks: " + std::to_string(summary.animations) + "\n";
    text += "meter scale: " + number(scene.meterScale) + " units in a metre\n";
    text += "up axis: " + describeUpAxis(scene.upAxis) + "\n";
    text += describeBounds(meshBounds(scene, sceneToViewer(scene))) + "\n";
    return text;
}

std::string describeSceneTree(const Scene& scene) {
    std::string text;
    for (const Node& child : scene.root.children) addNode(child, 0, text);
    for (const Mesh& mesh : scene.root.meshes) {
        text += "object \"" + mesh.name + "\": " + counted(mesh.triangleCount(), "triangle", "triangles") + "\n";
    }
    for (const Camera& camera : scene.cameras) {
        text += "camera \"" + camera.name + "\" (" + (camera.orthographic ? "orthographic" : "perspective") + ")\n";
    }
    return text;
}

}  // namespace scenetools
