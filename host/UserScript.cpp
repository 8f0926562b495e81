#include "host/UserScript.h"

#include <algorithm>

namespace host {

template <typename Answer>
std::optional<Answer> UserScript::take(std::deque<Answer>& queue, std::string_view kind, std::string_view request) {
    if (queue.empty()) {
        errors_.add("the plug-in asked for " + std::string(kind) + " (\"" + std::string(request) +
                    "\") but the script has no answer for it");
        return std::nullopt;
    }
    Answer answer = std::move(queue.front());
    queue.pop_front();
    return answer;
}

void UserScript::pressButton(const std::string& dialog, std::string component) {
    buttons_[dialog].push_back(std::move(component));
}

std::optional<FileAnswer> UserScript::nextFile(std::string_view request) {
    return take(files_, "a file", request);
}

std::optional<SelectionAnswer> UserScript::nextSelection(std::string_view request) {
    return take(selections_, "a selection", request);
}

std::optional<RepresentationAnswer> UserScript::nextRepresentation(std::string_view request) {
    return take(representations_, "a representation", request);
}

std::optional<std::string> UserScript::nextButton(std::string_view dialog) {
    auto found = buttons_.find(dialog);
    std::deque<std::string> none;
    return take(found == buttons_.end() ? none : found->second, "a button press in a dialog", dialog);
}

bool UserScript::finished() const {
    return files_.empty() && selections_.empty() && representations_.empty() &&
           std::all_of(buttons_.begin(), buttons_.end(), [](const auto& dialog) { return dialog.second.empty(); });
}

}  // namespace host
