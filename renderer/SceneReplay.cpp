#include "renderer/SceneReplay.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace renderer {

namespace {

using scenereader::Block;
using scenereader::Statement;
using scenereader::Value;
using scenereader::ValueKind;

const char* const SHADER_KEYWORDS[] = {"surface", "shadow", "volume", "reflection map"};

int shaderKind(const std::string& name) {
    for (int kind = 0; kind < 4; ++kind)
        if (name == SHADER_KEYWORDS[kind]) return kind;
    return -1;
}

// The writer prints single doubles with sixteen decimals and floats with %g:
// sixteen decimals mark a double, bare digits an integer, the rest a float.
int numberType(const std::string& text) {
    const std::size_t point = text.find('.');
    if (point != std::string::npos && text.find_first_of("eE") == std::string::npos && text.size() - point - 1 == 16)
        return ATTR_DOUBLE;
    if (!text.empty() && text.find_first_not_of("-0123456789") == std::string::npos) return ATTR_INT;
    return ATTR_FLOAT;
}

class Replay {
public:
    explicit Replay(nvxScene_api& scene) : scene_(scene) {}

    void body(const Block& block) {
        for (const auto& item : block.items) {
            if (const auto* statement = std::get_if<Statement>(&item)) {
                this->statement(*statement);
            } else {
                this->block(std::get<Block>(item));
            }
        }
    }

    std::size_t skipped = 0;

private:
    void block(const Block& block);
    void statement(const Statement& statement);
    bool keywordStatement(const Statement& statement);
    bool attribute(const Statement& statement);
    bool binaryAttribute(const char* name, const scenereader::BinaryArray& array);
    // The inline shader written into a handle of the scene, or null.
    const ShaderHandle* shaderHandle(const Block& shader);

    nvxScene_api& scene_;
};

std::string nameAt(const Block& block, std::size_t index) {
    return index < block.names.size() ? block.names[index] : std::string();
}

void Replay::block(const Block& block) {
    const std::string& kind = block.kind;
    const std::string name = block.name();
    const bool nested = !block.defined;
    if (kind == "group") {
        scene_.begin_group(name.c_str(), nested);
        body(block);
        scene_.end_group();
    } else if (kind == "object") {
        scene_.begin_object(name.c_str(), nested);
        body(block);
        scene_.end_object();
    } else if (kind == "geometry") {
        scene_.begin_geometry(name.c_str());
        body(block);
        scene_.end_geometry();
    } else if (kind == "material") {
        scene_.begin_material(name.c_str(), nested);
        body(block);
        scene_.end_material();
    } else if (kind == "load") {
        scene_.begin_load(name.c_str());
        body(block);
        scene_.end_load();
    } else if (kind == "options") {
        scene_.begin_options();
        body(block);
        scene_.end_options();
    } else if (kind == "camera") {
        if (block.modify) {
            scene_.modify_camera(name.c_str());
        } else {
            scene_.begin_camera(name.c_str());
        }
        body(block);
        scene_.end_camera();
    } else if (kind == "light") {
        scene_.begin_light(name.c_str());
        body(block);
        scene_.end_light();
    } else if (kind == "animation") {
        scene_.begin_animation(name.c_str(), nameAt(block, 1).c_str());
        body(block);
        scene_.end_animation();
    } else {
        ++skipped;
    }
}

void Replay::statement(const Statement& statement) {
    if (statement.comment) return;
    if (statement.name == "#print" || statement.name == "#error") {
        const std::string text = statement.values.empty() ? std::string() : statement.values.front().text;
        if (statement.name == "#print") {
            scene_.print_message(text.c_str());
        } else {
            scene_.print_error(text.c_str());
        }
        return;
    }
    if (!statement.quotedName && keywordStatement(statement)) return;
    if (!attribute(statement)) ++skipped;
}

// The statements that have calls of their own.
bool Replay::keywordStatement(const Statement& statement) {
    const std::string& name = statement.name;
    const std::vector<double> numbers = statement.numbers();
    if ((name == "transform" || name == "set transform") && numbers.size() == 16) {
        if (name == "transform") {
            scene_.apply_transform(numbers.data());
        } else {
            scene_.set_transform(numbers.data());
        }
        return true;
    }
    if (numbers.size() == 1 && statement.values.size() == 1) {
        const auto whole = static_cast<unsigned>(numbers.front());
        if (name == "flags") scene_.set_flags(whole);
        if (name == "id") scene_.set_id(whole);
        if (name == "version") scene_.set_version(whole);
        if (name == "flags" || name == "id" || name == "version") return true;
    }
    if (name == "material" && statement.values.size() == 1 && statement.values.front().kind == ValueKind::String)
        return scene_.use_material(statement.values.front().text.c_str());
    const int kind = shaderKind(name);
    if (kind < 0 || statement.values.size() != 1) return false;
    const Value& value = statement.values.front();
    if (value.kind == ValueKind::Number) {
        scene_.set_shader_id(kind, static_cast<int>(value.number));
        return true;
    }
    if (value.kind != ValueKind::Shader) return false;
    scene_.set_shader(kind, shaderHandle(*value.shader));
    return true;
}

const ShaderHandle* Replay::shaderHandle(const Block& shader) {
    scene_.begin_shader(nullptr, shader.name().c_str());
    body(shader);
    scene_.end_shader();
    return scene_.current_shader();
}

bool Replay::binaryAttribute(const char* name, const scenereader::BinaryArray& array) {
    switch (array.kind) {
        case 'c': {
            ArrayRecord record{array.floats.data(), array.count / 3};
            return scene_.set_attribute(name, ATTR_FLOAT3_ARRAY, &record);
        }
        case 'f': {
            ArrayRecord record{array.floats.data(), array.count};
            return scene_.set_attribute(name, ATTR_FLOAT_ARRAY, &record);
        }
        case 'i': {
            ArrayRecord record{array.ints.data(), array.count};
            return scene_.set_attribute(name, ATTR_INT_ARRAY, &record);
        }
        case 'r': {
            ArrayRecord record{array.doubles.data(), array.count};
            return scene_.set_attribute(name, ATTR_DOUBLE_ARRAY, &record);
        }
        default: return false;
    }
}

// An attribute by the form of its values: one value of any kind, or two to
// four numbers as floats, or sixteen as a matrix.
bool Replay::attribute(const Statement& statement) {
    const char* name = statement.name.c_str();
    const auto& values = statement.values;
    if (statement.boundShader && values.size() == 1) {
        const Value& value = values.front();
        if (value.kind == ValueKind::Shader) return scene_.set_shader_attribute(name, shaderHandle(*value.shader));
        if (value.kind == ValueKind::Number) return scene_.set_shader_attribute_id(name, static_cast<int>(value.number));
        return false;
    }
    const std::vector<double> numbers = statement.numbers();
    if (values.size() == 1) {
        const Value& value = values.front();
        switch (value.kind) {
            case ValueKind::Binary: return binaryAttribute(name, value.binary);
            case ValueKind::String: return scene_.set_attribute(name, ATTR_STRING, value.text.c_str());
            case ValueKind::Word: {
                if (value.text != "on" && value.text != "off") return false;
                const std::int32_t on = value.text == "on";
                return scene_.set_attribute(name, ATTR_BOOL, &on);
            }
            case ValueKind::Shader: {
                const ShaderHandle* handle = shaderHandle(*value.shader);
                return scene_.set_attribute(name, ATTR_SHADER, &handle);
            }
            case ValueKind::Number: {
                const int type = numberType(value.text);
                if (type == ATTR_DOUBLE) return scene_.set_attribute(name, type, &value.number);
                if (type == ATTR_INT) {
                    const auto whole = static_cast<std::int32_t>(value.number);
                    return scene_.set_attribute(name, type, &whole);
                }
                const float single = static_cast<float>(value.number);
                return scene_.set_attribute(name, type, &single);
            }
            default: return false;
        }
    }
    if (numbers.size() != values.size()) return false;
    if (numbers.size() == 16) return scene_.set_attribute(name, ATTR_MATRIX, numbers.data());
    if (numbers.size() < 2 || numbers.size() > 4) return false;
    std::array<float, 4> floats{};
    for (std::size_t i = 0; i < numbers.size(); ++i) floats[i] = static_cast<float>(numbers[i]);
    static constexpr int FLOAT_TYPES[] = {ATTR_FLOAT2, ATTR_FLOAT3, ATTR_FLOAT4};
    return scene_.set_attribute(name, FLOAT_TYPES[numbers.size() - 2], floats.data());
}

}  // namespace

std::size_t replayScene(const scenereader::Block& root, nvxScene_api& scene) {
    Replay replay(scene);
    replay.body(root);
    return replay.skipped;
}

}  // namespace renderer
