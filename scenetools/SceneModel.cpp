#include "scenetools/SceneModel.h"

#include <algorithm>
#include <variant>

#include "scenereader/SceneAnimations.h"

namespace scenetools {

using scenereader::Block;
using scenereader::Statement;
using scenereader::Value;
using scenereader::ValueKind;

Matrix multiply(const Matrix& a, const Matrix& b) {
    Matrix result{};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0;
            for (int k = 0; k < 4; ++k) sum += a[row * 4 + k] * b[k * 4 + column];
            result[row * 4 + column] = sum;
        }
    }
    return result;
}

std::array<double, 3> transformPoint(const Matrix& m, const std::array<double, 3>& p) {
    std::array<double, 3> result{};
    for (int column = 0; column < 3; ++column) {
        result[column] = p[0] * m[column] + p[1] * m[4 + column] + p[2] * m[8 + column] + m[12 + column];
    }
    return result;
}

namespace {

// The scalars of an array value, binary or text, in order; empty for any
// other shape.
template <typename T>
std::vector<T> scalarsOf(const Value& value) {
    std::vector<T> result;
    if (value.kind == ValueKind::Binary) {
        const auto& binary = value.binary;
        if (!binary.floats.empty()) result.assign(binary.floats.begin(), binary.floats.end());
        if (!binary.ints.empty()) result.assign(binary.ints.begin(), binary.ints.end());
        if (!binary.doubles.empty()) result.assign(binary.doubles.begin(), binary.doubles.end());
        return result;
    }
    if (value.kind != ValueKind::TextArray) return result;
    for (const Value& element : value.items) {
        if (element.kind == ValueKind::Number) result.push_back(static_cast<T>(element.number));
        for (const Value& scalar : element.items) result.push_back(static_cast<T>(scalar.number));
    }
    return result;
}

template <typename T>
std::vector<T> arrayAttribute(const Block& geometry, const char* name) {
    const Statement* statement = geometry.statement(name);
    if (!statement || statement->values.size() != 1) return {};
    return scalarsOf<T>(statement->values.front());
}

template <size_t N>
bool readNumbers(const Statement* statement, std::array<double, N>& out) {
    if (!statement) return false;
    std::vector<double> numbers = statement->numbers();
    if (numbers.size() != N) return false;
    for (size_t i = 0; i < N; ++i) out[i] = numbers[i];
    return true;
}

// The surface shader of a material: its colour, and the image of a texture
// shader bound to "diffuse" if there is one.
Material readMaterial(const Block& block) {
    Material material;
    material.name = block.name();
    const Statement* surface = block.statement("surface");
    const Block* shader = surface ? surface->shader() : nullptr;
    if (!shader) return material;
    for (const Statement* diffuse : shader->statements("diffuse")) {
        std::array<double, 3> colour{};
        if (readNumbers(diffuse, colour)) {
            for (int i = 0; i < 3; ++i) material.diffuse[i] = static_cast<float>(colour[i]);
        }
        const Block* texture = diffuse->shader();
        const Statement* path = texture ? texture->statement("texture") : nullptr;
        if (path && !path->values.empty() && path->values[0].kind == ValueKind::String) {
            material.texture = path->values[0].text;
        }
    }
    return material;
}

Mesh readMesh(const Block& object, const Block& geometry) {
    Mesh mesh;
    mesh.name = object.name();
    mesh.vertices = arrayAttribute<float>(geometry, "vertices");
    mesh.normals = arrayAttribute<float>(geometry, "normals");
    mesh.uvs = arrayAttribute<float>(geometry, "uv_tex");
    mesh.indices = arrayAttribute<int32_t>(geometry, "triangles");
    if (mesh.vertices.size() % 3 != 0 || mesh.indices.size() % 3 != 0) {
        mesh.vertices.clear();
        mesh.indices.clear();
    }
    if (mesh.normals.size() != mesh.vertices.size()) mesh.normals.clear();
    if (mesh.uvs.size() != 2 * mesh.vertexCount()) mesh.uvs.clear();
    if (const Block* material = object.child("material")) mesh.material = readMaterial(*material);
    return mesh;
}

Camera readCamera(const Block& block, const Matrix& parentWorld) {
    Camera camera;
    camera.name = block.name();
    readNumbers(block.statement("position"), camera.position);
    readNumbers(block.statement("direction"), camera.direction);
    readNumbers(block.statement("up"), camera.up);
    std::array<double, 1> fov{camera.fieldOfView};
    if (readNumbers(block.statement("fov"), fov)) camera.fieldOfView = fov[0];
    const Statement* projection = block.statement("projection");
    camera.orthographic = projection && !projection->values.empty() && projection->values[0].text == "orthographic";
    readNumbers(block.statement("transform"), camera.transform);
    camera.world = multiply(camera.transform, parentWorld);
    return camera;
}

class SceneBuilder {
public:
    explicit SceneBuilder(Scene& scene) : scene_(scene) {}

    // Fills `node` from the items of `block`; `parentWorld` places the block's parent.
    void readGroup(const Block& block, Node& node, const Matrix& parentWorld) {
        readNumbers(block.statement("transform"), node.transform);
        const Matrix world = multiply(node.transform, parentWorld);
        if (const Statement* flags = block.statement("flags"); flags && flags->numbers().size() == 1) {
            node.hasFlags = true;
            node.flags = static_cast<uint32_t>(flags->numbers()[0]);
        }
        for (const auto& item : block.items) {
            if (const Block* inner = std::get_if<Block>(&item)) readItem(*inner, node, world);
        }
    }

private:
    void readItem(const Block& block, Node& node, const Matrix& world) {
        if (block.kind == "group") {
            Node child;
            child.name = block.name();
            readGroup(block, child, world);
            node.children.push_back(std::move(child));
        } else if (block.kind == "object") {
            readObject(block, node);
        } else if (block.kind == "camera") {
            scene_.cameras.push_back(readCamera(block, world));
        } else if (block.kind == "animation") {
            ++node.animations;
            ++scene_.animations;
            readTrack(block, node);
        } else if (block.kind == "load") {
            readOptions(block);
        }
    }

    void readObject(const Block& object, Node& node) {
        for (const Block* geometry : object.children("geometry")) {
            if (geometry->name() == "triangles") {
                node.meshes.push_back(readMesh(object, *geometry));
            } else if (geometry->name() == "nurbs") {
                ++node.exactSurfaces;
                ++scene_.exactSurfaces;
            }
        }
    }

    void readTrack(const Block& block, Node& node) {
        std::vector<std::string> problems;
        const scenereader::Animation animation = scenereader::readAnimation(block, problems);
        if (!problems.empty() || animation.matrices.empty()) return;
        node.tracks.push_back(
            Track{animation.name, {animation.matrices.begin(), animation.matrices.end()}, animation.timestamps});
    }

    void readOptions(const Block& options) {
        std::array<double, 1> value{};
        if (readNumbers(options.statement("meter_scale"), value) && value[0] > 0) scene_.meterScale = value[0];
        if (readNumbers(options.statement("import_up_vector"), value)) scene_.upAxis = static_cast<int>(value[0]);
    }

    Scene& scene_;
};

}  // namespace

Scene buildScene(const scenereader::Document& document) {
    Scene scene;
    SceneBuilder(scene).readGroup(document.root, scene.root, identityMatrix);
    return scene;
}

}  // namespace scenetools

namespace scenetools {

bool Mesh::drawable() const {
    if (triangleCount() == 0) return false;
    for (int32_t index : indices) {
        if (index < 0 || static_cast<size_t>(index) >= vertexCount()) return false;
    }
    return true;
}

void Bounds::add(const std::array<double, 3>& point) {
    for (int i = 0; i < 3; ++i) {
        min[i] = empty ? point[i] : std::min(min[i], point[i]);
        max[i] = empty ? point[i] : std::max(max[i], point[i]);
    }
    empty = false;
}

Bounds meshBounds(const Scene& scene, const Matrix& outer) {
    Bounds bounds;
    forEachMesh(scene.root, identityMatrix, [&](const Mesh& mesh, const Matrix& world) {
        const Matrix placement = multiply(world, outer);
        for (size_t i = 0; i + 2 < mesh.vertices.size(); i += 3) {
            bounds.add(transformPoint(placement, {mesh.vertices[i], mesh.vertices[i + 1], mesh.vertices[i + 2]}));
        }
    });
    return bounds;
}

}  // namespace scenetools
