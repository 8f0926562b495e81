#pragma once
// Texts that the host allocated for the plug-in and that the plug-in gives
// back through the host's free call. Only a pointer that the host handed out
// and that is still out may be freed; what the plug-in never gives back goes
// with the session.
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/ProToolkit.h"

namespace host {

template <typename Char>
class HandedOutTexts {
public:
    // A zero-terminated copy of `text`, owned by the host until released.
    Char* give(std::basic_string_view<Char> text) {
        auto copy = std::make_unique<Char[]>(text.size() + 1);
        std::copy(text.begin(), text.end(), copy.get());
        Char* pointer = copy.get();
        texts_.emplace(pointer, std::move(copy));
        return pointer;
    }

    // Frees a text that is out; false, freeing nothing, for any other pointer.
    bool release(const Char* text) { return texts_.erase(text) == 1; }

    size_t outstanding() const { return texts_.size(); }

private:
    std::map<const Char*, std::unique_ptr<Char[]>> texts_;
};

// Arrays of texts that the host allocated for the plug-in, given back
// through the host's free call for string arrays.
class HandedOutStringArrays {
public:
    char** give(const std::vector<std::string>& texts) {
        Entry entry;
        entry.texts = texts;
        for (std::string& text : entry.texts) entry.pointers.push_back(text.data());
        entry.pointers.push_back(nullptr);
        auto stored = std::make_unique<Entry>(std::move(entry));
        char** array = stored->pointers.data();
        arrays_.emplace(array, std::move(stored));
        return array;
    }

    bool release(char** array) { return arrays_.erase(array) == 1; }
    size_t outstanding() const { return arrays_.size(); }

private:
    struct Entry {
        std::vector<std::string> texts;
        std::vector<char*> pointers;
    };
    std::map<char**, std::unique_ptr<Entry>> arrays_;
};

}  // namespace host
