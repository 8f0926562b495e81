#include "scenereader/SceneDocument.h"

namespace scenereader {

std::vector<double> Statement::numbers() const {
    std::vector<double> result;
    for (const Value& value : values) {
        if (value.kind == ValueKind::Number) result.push_back(value.number);
    }
    return result;
}

const Block* Statement::shader() const {
    for (const Value& value : values) {
        if (value.kind == ValueKind::Shader) return value.shader.get();
    }
    return nullptr;
}

std::string describeBlock(const Block& block) {
    std::string text = block.kind.empty() ? "the top level" : block.kind;
    if (!block.names.empty()) text += " \"" + block.names.front() + "\"";
    return text;
}

std::string Block::name() const { return names.empty() ? std::string() : names.front(); }

namespace {

// The items of type T whose field (a name or a kind) is `wanted`; only the
// first one if `firstOnly`.
template <typename T>
std::vector<const T*> matching(const Block& block, std::string T::*field, std::string_view wanted, bool firstOnly) {
    std::vector<const T*> result;
    for (const auto& item : block.items) {
        const T* candidate = std::get_if<T>(&item);
        if (!candidate || candidate->*field != wanted) continue;
        result.push_back(candidate);
        if (firstOnly) break;
    }
    return result;
}

template <typename T>
const T* firstOf(const std::vector<const T*>& found) {
    return found.empty() ? nullptr : found.front();
}

}  // namespace

const Statement* Block::statement(std::string_view wanted) const {
    return firstOf(matching(*this, &Statement::name, wanted, true));
}

std::vector<const Statement*> Block::statements(std::string_view wanted) const {
    return matching(*this, &Statement::name, wanted, false);
}

const Block* Block::child(std::string_view wanted) const {
    return firstOf(matching(*this, &Block::kind, wanted, true));
}

std::vector<const Block*> Block::children(std::string_view wanted) const {
    return matching(*this, &Block::kind, wanted, false);
}

namespace {

void collectDescendants(const Block& block, std::string_view wanted, std::vector<const Block*>& result) {
    for (const auto& item : block.items) {
        const auto* inner = std::get_if<Block>(&item);
        if (!inner) continue;
        if (inner->kind == wanted) result.push_back(inner);
        collectDescendants(*inner, wanted, result);
    }
}

}  // namespace

std::vector<const Block*> Block::descendants(std::string_view wanted) const {
    std::vector<const Block*> result;
    collectDescendants(*this, wanted, result);
    return result;
}

}  // namespace scenereader
