#include "SceneDifference.h"

#include <cstring>

#include "scenereader/SceneReader.h"

namespace renderer::testing {

namespace {

using scenereader::Block;
using scenereader::Statement;
using scenereader::Value;

template <typename T>
bool sameBits(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

bool sameValue(const Value& a, const Value& b) {
    if (a.kind != b.kind || a.text != b.text || a.items.size() != b.items.size()) return false;
    if (std::memcmp(&a.number, &b.number, sizeof a.number) != 0) return false;
    const auto& x = a.binary;
    const auto& y = b.binary;
    if (x.kind != y.kind || x.count != y.count || !sameBits(x.floats, y.floats) || !sameBits(x.ints, y.ints) ||
        !sameBits(x.doubles, y.doubles))
        return false;
    for (std::size_t i = 0; i < a.items.size(); ++i)
        if (!sameValue(a.items[i], b.items[i])) return false;
    if (!a.shader != !b.shader) return false;
    return !a.shader || firstDifference(*a.shader, *b.shader).empty();
}

bool sameStatement(const Statement& a, const Statement& b) {
    if (a.name != b.name || a.values.size() != b.values.size()) return false;
    for (std::size_t i = 0; i < a.values.size(); ++i)
        if (!sameValue(a.values[i], b.values[i])) return false;
    return true;
}

}  // namespace

std::string firstDifference(const Block& a, const Block& b) {
    const std::string here = scenereader::describeBlock(a);
    if (a.kind != b.kind || a.names != b.names) return here + ": against " + scenereader::describeBlock(b);
    if (a.items.size() != b.items.size())
        return here + ": " + std::to_string(a.items.size()) + " items against " + std::to_string(b.items.size());
    for (std::size_t i = 0; i < a.items.size(); ++i) {
        const auto* blockA = std::get_if<Block>(&a.items[i]);
        const auto* blockB = std::get_if<Block>(&b.items[i]);
        if (!blockA != !blockB) return here + ": item " + std::to_string(i) + " is a block in one scene only";
        if (blockA) {
            const std::string below = firstDifference(*blockA, *blockB);
            if (!below.empty()) return here + " / " + below;
        } else if (!sameStatement(std::get<Statement>(a.items[i]), std::get<Statement>(b.items[i]))) {
            return here + ": statement " + std::get<Statement>(a.items[i]).name;
        }
    }
    return {};
}

Block modelGroupOf(const std::string& file) {
    scenereader::Document document = scenereader::readSceneFile(file);
    for (auto& item : document.root.items)
        if (auto* group = std::get_if<Block>(&item); group && group->kind == "group") return std::move(*group);
    return {};
}

}  // namespace renderer::testing
