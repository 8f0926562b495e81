#include "host/MessageFile.h"

#include <vector>

#include "platform/Utf8.h"

namespace host {
namespace {

struct Line {
    std::string_view text;
    int number;
};

std::string_view trimTrailingBlanks(std::string_view text) {
    size_t end = text.find_last_not_of(" \t\r");
    return end == std::string_view::npos ? std::string_view{} : text.substr(0, end + 1);
}

std::vector<Line> splitLines(std::string_view content) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
    std::vector<Line> lines;
    int number = 1;
    while (!content.empty()) {
        size_t end = content.find('\n');
        std::string_view line = content.substr(0, end);
        lines.push_back({trimTrailingBlanks(line), number++});
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
    }
    return lines;
}

// Invalid sequences become U+FFFD rather than failing the whole file.
std::string at(const Line& line, std::string_view reason) {
    return "line " + std::to_string(line.number) + ": " + std::string(reason);
}

}  // namespace

std::optional<MessageFile> MessageFile::parse(std::string_view content, std::string& error) {
    std::vector<Line> lines = splitLines(content);
    MessageFile file;
    size_t index = 0;
    while (index < lines.size()) {
        if (lines[index].text.empty()) {
            ++index;
            continue;
        }
        const Line& keyword = lines[index];
        std::string key(keyword.text.substr(keyword.text.find_first_not_of(" \t")));
        if (key == "#") {
            error = at(keyword, "expected a keyword, found \"#\"");
            return std::nullopt;
        }
        if (index + 3 >= lines.size()) {
            error = at(keyword, "message \"" + key + "\" is incomplete: a message has four lines");
            return std::nullopt;
        }
        const Line& closing = lines[index + 3];
        if (closing.text != "#") {
            error = at(closing, "expected \"#\" to close message \"" + key + "\", found \"" +
                                    std::string(closing.text) + "\"");
            return std::nullopt;
        }
        MessageText text{platform::utf8ToWide(lines[index + 1].text), std::nullopt};
        if (lines[index + 2].text != "#") text.translation = platform::utf8ToWide(lines[index + 2].text);
        if (!file.messages_.emplace(key, std::move(text)).second) {
            error = at(keyword, "message \"" + key + "\" is defined twice");
            return std::nullopt;
        }
        index += 4;
    }
    return file;
}

const MessageText* MessageFile::find(std::string_view key) const {
    auto found = messages_.find(key);
    return found == messages_.end() ? nullptr : &found->second;
}

}  // namespace host
