#include "host/TextResources.h"


#include "platform/WholeFile.h"

namespace host {
namespace {

// Only the language of the host's own texts shows the English line.
constexpr std::string_view englishLanguage = "usascii";

std::string quoted(const std::filesystem::path& path) { return "\"" + path.string() + "\""; }

}  // namespace

void TextResources::setRoot(std::filesystem::path root, std::string language) {
    root_ = std::move(root);
    language_ = std::move(language);
    parsed_.clear();
}

std::optional<std::filesystem::path> TextResources::findFirst(
    const std::filesystem::path& name, std::initializer_list<std::filesystem::path> folders) const {
    if (root_.empty() || name.empty()) return std::nullopt;
    for (const std::filesystem::path& folder : folders) {
        std::filesystem::path candidate = root_ / folder / name;
        std::error_code ignored;
        if (std::filesystem::is_regular_file(candidate, ignored)) return candidate;
    }
    return std::nullopt;
}

// A name without an extension also stands for the same name with ".txt".
std::optional<std::filesystem::path> TextResources::findMessageFile(const std::filesystem::path& file) const {
    const std::filesystem::path text = "text";
    for (const std::filesystem::path& folder : {text / language_, text}) {
        if (auto found = findFirst(file, {folder})) return found;
        if (file.has_extension()) continue;
        std::filesystem::path withExtension = file;
        if (auto found = findFirst(withExtension.replace_extension(".txt"), {folder})) return found;
    }
    return std::nullopt;
}

std::optional<std::filesystem::path> TextResources::findIcon(const std::filesystem::path& icon) const {
    return findFirst(icon, {std::filesystem::path("text") / "resource", "text"});
}

const TextResources::ParsedFile& TextResources::load(const std::filesystem::path& path) {
    auto known = parsed_.find(path);
    if (known != parsed_.end()) return known->second;
    std::string error = "can't be read";
    std::optional<MessageFile> file;
    if (const std::optional<std::string> content = platform::readWholeFile(path)) file = MessageFile::parse(*content, error);
    ParsedFile parsed = file ? ParsedFile(std::move(*file)) : ParsedFile("message file " + quoted(path) + ": " + error);
    return parsed_.emplace(path, std::move(parsed)).first->second;
}

TextLookup TextResources::message(const std::filesystem::path& file, std::string_view key) {
    std::optional<std::filesystem::path> path = findMessageFile(file);
    if (!path) {
        return {std::nullopt, "message file " + quoted(file) + " not found in " +
                                  quoted(root_ / "text" / language_) + " or " + quoted(root_ / "text")};
    }
    const ParsedFile& parsed = load(*path);
    if (const std::string* error = std::get_if<std::string>(&parsed)) return {std::nullopt, *error};
    const MessageText* text = std::get<MessageFile>(parsed).find(key);
    if (!text) return {std::nullopt, "message file " + quoted(*path) + " has no message \"" + std::string(key) + "\""};
    bool translated = language_ != englishLanguage && text->translation;
    return {translated ? *text->translation : text->english, {}};
}

}  // namespace host
