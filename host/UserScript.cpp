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

std::string DialogStep::describe() const {
    switch (kind) {
        case Kind::Press: return "press " + component;
        case Kind::SetValue: return "set " + component + " to " + value;
        case Kind::Close: return "close";
    }
    return {};
}

void UserScript::pressButton(const std::string& dialog, std::string component) {
    steps_[dialog].push_back({DialogStep::Kind::Press, std::move(component), {}});
}

void UserScript::setValue(const std::string& dialog, std::string component, std::string value) {
    steps_[dialog].push_back({DialogStep::Kind::SetValue, std::move(component), std::move(value)});
}

void UserScript::closeDialog(const std::string& dialog) { steps_[dialog].push_back({DialogStep::Kind::Close, {}, {}}); }

std::optional<FileAnswer> UserScript::nextFile(std::string_view request) {
    return take(files_, "a file", request);
}

std::optional<SelectionAnswer> UserScript::nextSelection(std::string_view request) {
    return take(selections_, "a selection", request);
}

std::optional<RepresentationAnswer> UserScript::nextRepresentation(std::string_view request) {
    return take(representations_, "a representation", request);
}

std::optional<DialogStep> UserScript::nextStep(std::string_view dialog) {
    auto found = steps_.find(dialog);
    std::deque<DialogStep> none;
    return take(found == steps_.end() ? none : found->second, "a step of the user in a dialog", dialog);
}

bool UserScript::finished() const {
    return files_.empty() && selections_.empty() && representations_.empty() &&
           std::all_of(steps_.begin(), steps_.end(), [](const auto& dialog) { return dialog.second.empty(); });
}

}  // namespace host
