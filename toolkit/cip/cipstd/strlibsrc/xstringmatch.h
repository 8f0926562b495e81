#pragma once
// Whole-text wildcard matching and word splitting, over the characters of a
// narrow or a wide text.
#include <string_view>
#include <vector>

#include "toolkit/cip/cipstd/strlibsrc/xtext.h"

namespace xstringmatch {

template <typename Char>
using Characters = std::vector<std::basic_string_view<Char>>;

template <typename Char>
Characters<Char> splitCharacters(std::basic_string_view<Char> text) {
    Characters<Char> characters;
    for (std::size_t offset = 0; offset < text.size();) {
        std::size_t size = xtext::characterSize(text.substr(offset));
        characters.push_back(text.substr(offset, size));
        offset += size;
    }
    return characters;
}

template <typename Char>
bool isSymbol(std::basic_string_view<Char> character, char symbol) {
    return character.size() == 1 && character[0] == static_cast<Char>(symbol);
}

// One bracket list starting after "[" at `index`: whether `character` is in
// it, and the index after "]"; 0 when the pattern ends before "]".
template <typename Char>
std::size_t matchList(const Characters<Char>& pattern, std::size_t index, std::basic_string_view<Char> character,
                      bool& found) {
    found = false;
    while (index < pattern.size() && !isSymbol(pattern[index], ']')) {
        bool range = index + 2 < pattern.size() && isSymbol(pattern[index + 1], '-') && !isSymbol(pattern[index + 2], ']');
        if (range) {
            found = found || (pattern[index] <= character && character <= pattern[index + 2]);
            index += 3;
        } else {
            found = found || pattern[index] == character;
            ++index;
        }
    }
    return index < pattern.size() ? index + 1 : 0;
}

template <typename Char>
bool matchFrom(const Characters<Char>& pattern, std::size_t p, const Characters<Char>& text, std::size_t t) {
    while (p < pattern.size()) {
        bool atEnd = t == text.size();
        if (!atEnd && pattern[p] == text[t]) {  // the character itself comes before any special meaning
            ++p, ++t;
        } else if (isSymbol(pattern[p], '?')) {
            if (atEnd) return false;
            ++p, ++t;
        } else if (isSymbol(pattern[p], '*')) {
            if (p + 1 == pattern.size()) return true;
            for (std::size_t start = t; start <= text.size(); ++start)
                if (matchFrom(pattern, p + 1, text, start)) return true;
            return false;
        } else if (isSymbol(pattern[p], '[')) {
            if (atEnd) return false;
            bool found = false;
            std::size_t next = matchList(pattern, p + 1, text[t], found);
            if (next == 0 || !found) return false;
            p = next, ++t;
        } else if (isSymbol(pattern[p], '\\')) {
            if (p + 1 == pattern.size() || atEnd || pattern[p + 1] != text[t]) return false;
            p += 2, ++t;
        } else {
            return false;
        }
    }
    return t == text.size();
}

template <typename Char>
bool match(std::basic_string_view<Char> text, std::basic_string_view<Char> pattern) {
    return matchFrom(splitCharacters(pattern), 0, splitCharacters(text), 0);
}

// The words of a text: maximal runs of characters not among the delimiters.
template <typename Char>
std::vector<std::basic_string_view<Char>> words(std::basic_string_view<Char> text,
                                                std::basic_string_view<Char> delimiters) {
    Characters<Char> delimiterList = splitCharacters(delimiters);
    auto isDelimiter = [&](std::basic_string_view<Char> character) {
        for (auto delimiter : delimiterList)
            if (delimiter == character) return true;
        return false;
    };
    std::vector<std::basic_string_view<Char>> result;
    std::size_t wordStart = 0;
    bool inWord = false;
    for (std::size_t offset = 0; offset < text.size();) {
        std::size_t size = xtext::characterSize(text.substr(offset));
        bool delimiter = isDelimiter(text.substr(offset, size));
        if (!delimiter && !inWord) wordStart = offset;
        if (delimiter && inWord) result.push_back(text.substr(wordStart, offset - wordStart));
        inWord = !delimiter;
        offset += size;
    }
    if (inWord) result.push_back(text.substr(wordStart));
    return result;
}

}  // namespace xstringmatch
