#include "renderer/SceneMerge.h"

#include <algorithm>
#include <map>
#include <utility>
#include <variant>
#include <vector>

namespace renderer {

namespace {

using scenereader::Block;
using Item = std::variant<scenereader::Statement, Block>;

const Block* asBlock(const Item& item) { return std::get_if<Block>(&item); }

bool isBlockOf(const Item& item, const char* kind) {
    const Block* block = asBlock(item);
    return block && block->kind == kind;
}

// What identifies an item among its siblings: a statement by its name, a
// block by its kind and name; with the count of earlier items of that key.
std::string keyOf(const Item& item) {
    if (const auto* statement = std::get_if<scenereader::Statement>(&item)) return "statement " + statement->name;
    const Block& block = std::get<Block>(item);
    return block.kind + " " + block.name();
}

// For each item, the index of its twin among the other items (the same key
// and the same count of earlier items of that key), or -1. Objects have no
// twins: they go or stay together.
std::vector<int> twinsOf(const std::vector<Item>& items, const std::vector<Item>& others) {
    std::map<std::string, std::vector<int>> byKey;
    for (std::size_t i = 0; i < others.size(); ++i) byKey[keyOf(others[i])].push_back(static_cast<int>(i));
    std::map<std::string, std::size_t> seen;
    std::vector<int> twins;
    for (const Item& item : items) {
        const std::string key = keyOf(item);
        const std::size_t occurrence = seen[key]++;
        const auto& candidates = byKey[key];
        twins.push_back(isBlockOf(item, "object") || occurrence >= candidates.size() ? -1 : candidates[occurrence]);
    }
    return twins;
}

bool sendsKey(const std::vector<Item>& items, const std::string& key) {
    return std::any_of(items.begin(), items.end(), [&key](const Item& item) { return keyOf(item) == key; });
}

void mergeGroup(Block& held, const Block& sent);

// The sent items in their order, each sent group merged with its held twin.
// What was held and not sent again stays, each before the sent twin of the
// next held item that has one: the groups and other blocks, the statements
// of names that were not sent, and the objects if `keepHeld` and the stream
// carries none.
std::vector<Item> mergedItems(std::vector<Item>& held, const std::vector<Item>& sent, bool keepHeld) {
    const std::vector<int> heldTwins = twinsOf(held, sent);
    const std::vector<int> sentTwins = twinsOf(sent, held);
    const bool sendsObjects =
        std::any_of(sent.begin(), sent.end(), [](const Item& item) { return isBlockOf(item, "object"); });
    // Each merged item with the place it goes: before sent item N (N, 0), or as it (N, 1).
    std::vector<std::pair<std::pair<std::size_t, int>, Item>> placed;
    std::size_t anchor = sent.size();
    for (std::size_t i = held.size(); i-- > 0;) {
        if (heldTwins[i] >= 0) {
            anchor = static_cast<std::size_t>(heldTwins[i]);
            continue;
        }
        const bool isStatement = std::holds_alternative<scenereader::Statement>(held[i]);
        const bool keep = isBlockOf(held[i], "object") ? keepHeld && !sendsObjects
                          : isStatement                ? keepHeld && !sendsKey(sent, keyOf(held[i]))
                                                       : keepHeld || isBlockOf(held[i], "group");
        if (keep) placed.push_back({{anchor, 0}, std::move(held[i])});
    }
    std::reverse(placed.begin(), placed.end());
    for (std::size_t i = 0; i < sent.size(); ++i) {
        if (sentTwins[i] >= 0 && isBlockOf(sent[i], "group")) {
            Block& twin = std::get<Block>(held[static_cast<std::size_t>(sentTwins[i])]);
            mergeGroup(twin, std::get<Block>(sent[i]));
            placed.push_back({{i, 1}, std::move(twin)});
        } else {
            placed.push_back({{i, 1}, sent[i]});
        }
    }
    std::stable_sort(placed.begin(), placed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Item> merged;
    for (auto& [place, item] : placed) merged.push_back(std::move(item));
    return merged;
}

void mergeGroup(Block& held, const Block& sent) {
    std::vector<Item> merged = mergedItems(held.items, sent.items, true);
    held.names = sent.names;
    held.defined = sent.defined;
    held.items = std::move(merged);
}

}  // namespace

std::string modelNameOf(const Block& root) {
    for (const Item& item : root.items)
        if (isBlockOf(item, "group")) return asBlock(item)->name();
    return {};
}

void mergeScene(Block& held, const Block& sent) {
    // Only the model's group is merged: the rest of the top level (the
    // importer's options, the version) is the stream's.
    std::vector<Item> merged = mergedItems(held.items, sent.items, false);
    held.items = std::move(merged);
}

}  // namespace renderer
