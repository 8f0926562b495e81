#pragma once
// Where the plug-in's text files lie below the host's text root: a directory
// per language, or one without a language level.
#include <string>

namespace toolkit {

struct TextDirectories {
    std::string menus;
    std::string messages;
    std::string resources;
};

// The directories derived at start-up.
extern TextDirectories hostTextDirectories;

// The directories for `languageCode` below `root`: the language's own
// directory "<root>/text/<language>" if it exists, else that of the fallback
// language, else "<root>/text" itself.
TextDirectories deriveTextDirectories(const char* root, int languageCode);

}  // namespace toolkit
