#pragma once
// A message file of the host: four lines per message, the keyword, the
// English text, a translation or "#", and a closing "#".
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace host {

struct MessageText {
    std::u16string english;
    std::optional<std::u16string> translation;  // none where the file says "#"
};

class MessageFile {
public:
    // Parses the bytes of a file in UTF-8. Line ends may be "\n" or "\r\n",
    // trailing blanks are ignored and blank lines may stand between messages.
    // On a malformed file answers nothing and sets `error` to the line and
    // the reason.
    static std::optional<MessageFile> parse(std::string_view content, std::string& error);

    // The message of that keyword (exact in case), or null.
    const MessageText* find(std::string_view key) const;
    size_t size() const { return messages_.size(); }

private:
    std::map<std::string, MessageText, std::less<>> messages_;
};

}  // namespace host
