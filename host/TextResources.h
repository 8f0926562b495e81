#pragma once
// The plug-in's text resources as the host finds them below the text root
// that the plug-in was started with: message files in the language's folder
// or the plain text folder, icons in the resource folder or the text folder.
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "host/MessageFile.h"

namespace host {

// The outcome of resolving a message key: the text, or why there is none.
struct TextLookup {
    std::optional<std::u16string> text;
    std::string error;
};

class TextResources {
public:
    // The folder that holds "text", and the name of the language in use.
    void setRoot(std::filesystem::path root, std::string language);
    const std::filesystem::path& root() const { return root_; }
    const std::string& language() const { return language_; }

    // "<root>/text/<language>/<file>", else "<root>/text/<file>"; in each
    // folder a file name without an extension is also tried with ".txt".
    std::optional<std::filesystem::path> findMessageFile(const std::filesystem::path& file) const;
    // "<root>/text/resource/<icon>", else "<root>/text/<icon>".
    std::optional<std::filesystem::path> findIcon(const std::filesystem::path& icon) const;

    // The text of `key` in the message file of that name, in the language in
    // use. Files are read once and kept.
    TextLookup message(const std::filesystem::path& file, std::string_view key);

private:
    using ParsedFile = std::variant<MessageFile, std::string>;  // the file, or why it is bad
    const ParsedFile& load(const std::filesystem::path& path);
    std::optional<std::filesystem::path> findFirst(const std::filesystem::path& name,
                                                   std::initializer_list<std::filesystem::path> folders) const;

    std::filesystem::path root_;
    std::string language_;
    std::map<std::filesystem::path, ParsedFile> parsed_;
};

}  // namespace host
