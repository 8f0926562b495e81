#pragma once
// The dialogs that the plug-in builds through the host's user-interface
// calls, held as a model of their components, and their activation: the
// user's scripted steps (a press, a value set on a control, a close) run the
// components' actions as a person's clicks and drags would. Every activation
// is kept in a history, so tests see what the user was shown.
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ErrorLog.h"
#include "host/UserScript.h"
#include "toolkit/ProToolkit.h"

namespace host {

enum class ComponentKind { Label, PushButton, Spinbox, Slider, CheckButton, RadioGroup, Separator, Layout, InputPanel };

const char* kindName(ComponentKind kind);

// One component with every property that the plug-in can set; each kind
// uses its own few.
struct DialogComponent {
    std::string name;
    ComponentKind kind = ComponentKind::Label;
    std::string layout;  // the layout that holds it; empty for the dialog itself
    ProUIGridopts grid{};
    std::u16string text;  // labels, push buttons, check buttons
    std::u16string helpText;
    bool unattachedLeft = false;
    bool unattachedRight = false;
    bool enabled = true;  // push buttons

    int inputType = 0;  // spinboxes, input panels
    int digits = 0;
    double minimum = 0.0, maximum = 0.0, increment = 0.0, fastIncrement = 0.0;
    double doubleValue = 0.0;

    int integerMinimum = 0, integerMaximum = 0, length = 0, orientation = 0;  // sliders, radio groups
    bool tracking = false;
    int integerValue = 0;

    bool checked = false;  // check buttons

    std::vector<std::string> names;  // radio groups
    std::vector<std::u16string> labels;
    std::vector<std::string> selectedNames;

    int maximumLength = 0;  // input panels
    std::u16string value;

    ProUIAction action = nullptr;  // a push button's press
    ProAppData actionData = nullptr;
    ProUIAction updateAction = nullptr;  // a change of a spinbox's or a slider's value
    ProAppData updateData = nullptr;
};

struct Dialog {
    std::string name;
    std::string resource;
    std::vector<DialogComponent> components;
    bool resizable = true;
    bool active = false;            // from its activation to the end of it
    std::optional<int> exitStatus;  // set by ProUIDialogExit while active

    DialogComponent* find(std::string_view component);
    const DialogComponent* find(std::string_view component) const;
};

// One activation of a dialog as the user saw it.
struct ShownDialog {
    std::string name;
    std::vector<DialogComponent> components;  // as they stood when it appeared
    std::vector<DialogComponent> closing;     // as they stood when it ended
    std::vector<std::string> steps;           // the user's steps, in order
    std::optional<int> exitStatus;            // none: the activation failed

    const DialogComponent* find(std::string_view component) const;
};

// A dialog as a text grid, one line a component in its place: the dialog's
// own rows first, a layout's components indented below it. For people and
// for tests that compare with a hand-written layout.
std::string drawDialog(const std::string& name, const std::vector<DialogComponent>& components);

// Each operation answers the host's status; a fault of the plug-in or of the
// script is also written to the error log, behind the operation's name.
class DialogBoard {
public:
    explicit DialogBoard(ErrorLog& errors) : errors_(errors) {}

    ProError create(std::string_view operation, std::string_view dialog, std::string_view resource);
    // Adds a component to the dialog, or to one of its layouts.
    ProError add(std::string_view operation, std::string_view dialog, std::string_view layout,
                 std::string_view component, ComponentKind kind, const ProUIGridopts* grid);
    // The component of that kind, or null. Asking for one that isn't there
    // is an answer that the real host gives too: it is kept in refusals(),
    // not logged as the plug-in's fault.
    DialogComponent* component(std::string_view operation, std::string_view dialog, std::string_view name,
                               ComponentKind kind);
    // Plays the script's steps for this dialog until an action ends it.
    ProError activate(std::string_view operation, std::string_view dialog, UserScript& script, int* status);
    ProError exit(std::string_view operation, std::string_view dialog, int status);
    ProError destroy(std::string_view operation, std::string_view dialog);
    ProError disableResizing(std::string_view operation, std::string_view dialog);

    // A dialog that exists (created and not destroyed), or null.
    const Dialog* find(std::string_view dialog) const;
    size_t open() const { return dialogs_.size(); }
    const std::vector<ShownDialog>& history() const { return history_; }
    const std::vector<std::string>& refusals() const { return refusals_; }

private:
    Dialog* existing(std::string_view operation, std::string_view dialog);
    ProError fail(std::string_view operation, ProError status, const std::string& reason);
    ProError playNext(std::string_view operation, std::string_view dialog, UserScript& script, size_t shown);
    ProError press(std::string_view operation, std::string_view dialog, const std::string& button);
    ProError setValue(std::string_view operation, std::string_view dialog, const DialogStep& step);

    ErrorLog& errors_;
    std::map<std::string, Dialog, std::less<>> dialogs_;
    std::vector<ShownDialog> history_;
    std::vector<std::string> refusals_;
};

}  // namespace host
