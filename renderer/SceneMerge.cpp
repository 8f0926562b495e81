#include "renderer/SceneMerge.h"

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

// The n-th group of that name among the items, or null.
Block* findGroup(std::vector<Item>& items, const std::string& name, int occurrence) {
    for (Item& item : items) {
        Block* block = std::get_if<Block>(&item);
        if (block && block->kind == "group" && block->name() == name && occurrence-- == 0) return block;
    }
    return nullptr;
}

bool carriesObjects(const Block& group) {
    for (const Item& item : group.items)
        if (isBlockOf(item, "object")) return true;
    return false;
}

void mergeGroup(Block& held, const Block& sent);

// The sent items, each sent group merged with its held twin; then the held
// groups that were not sent, and the held objects if the stream has none.
std::vector<Item> mergedItems(std::vector<Item>& held, const std::vector<Item>& sent, bool keepObjects) {
    std::vector<Item> merged;
    std::vector<const Block*> matched;
    std::map<std::string, int> occurrences;
    for (const Item& item : sent) {
        const Block* block = asBlock(item);
        if (!block || block->kind != "group") {
            merged.push_back(item);
            continue;
        }
        Block* twin = findGroup(held, block->name(), occurrences[block->name()]++);
        if (!twin) {
            merged.push_back(item);
            continue;
        }
        mergeGroup(*twin, *block);
        matched.push_back(twin);
        merged.push_back(std::move(*twin));
    }
    for (Item& item : held) {
        Block* block = std::get_if<Block>(&item);
        if (!block) continue;
        bool wasMatched = false;
        for (const Block* twin : matched) wasMatched = wasMatched || twin == block;
        if ((block->kind == "group" && !wasMatched) || (keepObjects && block->kind == "object"))
            merged.push_back(std::move(item));
    }
    return merged;
}

void mergeGroup(Block& held, const Block& sent) {
    std::vector<Item> merged = mergedItems(held.items, sent.items, !carriesObjects(sent));
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
