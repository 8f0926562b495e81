#include "toolkit/btk/Foundation.h"

#include <utility>

namespace btk {
namespace {

struct LanguageEntry {
    int code;
    const char* name;
};

constexpr LanguageEntry languages[] = {
    {1, "german"},   {2, "french"},    {3, "italian"},    {4, "spanish"},  {5, "japanese"},
    {6, "usascii"},  {7, "chinese_cn"}, {8, "chinese_tw"}, {9, "korean"},  {10, "russian"},
};

struct FoundationState {
    int language = fallbackLanguageCode;
    std::u16string messageDirectory;
    int runMode = 0;
    bool runModeNonZero = false;
};

FoundationState& state() {
    static FoundationState foundation;
    return foundation;
}

}  // namespace

const char* languageName(int code) {
    for (const LanguageEntry& entry : languages) {
        if (entry.code == code) return entry.name;
    }
    return "";
}

void setLanguage(int code) { state().language = code; }

int language() { return state().language; }

void setMessageDirectory(std::u16string directory) { state().messageDirectory = std::move(directory); }

const std::u16string& messageDirectory() { return state().messageDirectory; }

void setRunMode(int mode, bool nonZero) {
    state().runMode = mode;
    state().runModeNonZero = nonZero;
}

int runMode() { return state().runMode; }

bool runModeNonZero() { return state().runModeNonZero; }

}  // namespace btk
