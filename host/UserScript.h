#pragma once
// The user's answers to what the plug-in asks during a run, written before
// the run: one queue per kind of question. A question with no answer left is
// recorded in the session's error log, and the operation that asked answers
// a failure status to the plug-in.
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ErrorLog.h"

namespace host {

// Component ids from the top assembly down; empty picks the top model itself.
using ComponentPath = std::vector<int>;

struct FileAnswer {
    bool cancelled = false;
    std::u16string path;
};

struct SelectionAnswer {
    bool cancelled = false;
    std::vector<ComponentPath> picks;
};

struct RepresentationAnswer {
    bool cancelled = false;
    std::u16string name;
};

// One step of the user in an active dialog: a press on a push button, a new
// value for a control (as typed, dragged or clicked), or a close of the
// dialog's window.
struct DialogStep {
    enum class Kind { Press, SetValue, Close };
    Kind kind = Kind::Press;
    std::string component;
    std::string value;  // for SetValue, as text: "0.25", "2500", "on", "manual", a path

    std::string describe() const;
};

class UserScript {
public:
    explicit UserScript(ErrorLog& errors) : errors_(errors) {}

    void chooseFile(std::u16string path) { files_.push_back({false, std::move(path)}); }
    void cancelFile() { files_.push_back({true, {}}); }
    void select(std::vector<ComponentPath> picks) { selections_.push_back({false, std::move(picks)}); }
    void cancelSelection() { selections_.push_back({true, {}}); }
    void chooseRepresentation(std::u16string name) { representations_.push_back({false, std::move(name)}); }
    void cancelRepresentation() { representations_.push_back({true, {}}); }
    // Steps of the user in `dialog`, taken in order by its activations.
    void pressButton(const std::string& dialog, std::string component);
    void setValue(const std::string& dialog, std::string component, std::string value);
    void closeDialog(const std::string& dialog);

    // The next answer of each kind. `request` names what the plug-in asked
    // for (a dialog title, a selection filter) for the error log.
    std::optional<FileAnswer> nextFile(std::string_view request);
    std::optional<SelectionAnswer> nextSelection(std::string_view request);
    std::optional<RepresentationAnswer> nextRepresentation(std::string_view request);
    std::optional<DialogStep> nextStep(std::string_view dialog);

    // True when every scripted answer was used.
    bool finished() const;

private:
    template <typename Answer>
    std::optional<Answer> take(std::deque<Answer>& queue, std::string_view kind, std::string_view request);

    ErrorLog& errors_;
    std::deque<FileAnswer> files_;
    std::deque<SelectionAnswer> selections_;
    std::deque<RepresentationAnswer> representations_;
    std::map<std::string, std::deque<DialogStep>, std::less<>> steps_;
};

}  // namespace host
