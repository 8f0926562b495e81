#pragma once
// The dialogs that the plug-in builds through the host's user-interface
// calls, held as a model of their components, and their activation: the
// user's scripted presses run the buttons' actions as clicks would. Every
// activation is kept in a history, so tests see what the user was shown.
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ErrorLog.h"
#include "host/UserScript.h"
#include "toolkit/ProToolkit.h"

namespace host {

enum class ComponentKind { Label, PushButton };

struct DialogComponent {
    std::string name;
    ComponentKind kind = ComponentKind::Label;
    std::u16string text;
    int row = 0;
    int column = 0;
    ProUIAction action = nullptr;  // push buttons
    ProAppData actionData = nullptr;
};

struct Dialog {
    std::string name;
    std::string resource;
    std::vector<DialogComponent> components;
    bool active = false;            // from its activation to the end of it
    std::optional<int> exitStatus;  // set by ProUIDialogExit while active

    DialogComponent* find(std::string_view component, ComponentKind kind);
};

// One activation of a dialog as the user saw it.
struct ShownDialog {
    std::string name;
    std::vector<DialogComponent> components;  // as they stood when it appeared
    std::vector<std::string> presses;         // the buttons pressed, in order
    std::optional<int> exitStatus;            // none: the activation failed

    const DialogComponent* find(std::string_view component) const;
};

// Each operation answers the host's status; a fault of the plug-in or of the
// script is also written to the error log, behind the operation's name.
class DialogBoard {
public:
    explicit DialogBoard(ErrorLog& errors) : errors_(errors) {}

    ProError create(std::string_view operation, std::string_view dialog, std::string_view resource);
    ProError add(std::string_view operation, std::string_view dialog, std::string_view component, ComponentKind kind,
                 const ProUIGridopts* grid);
    ProError setText(std::string_view operation, std::string_view dialog, std::string_view component,
                     ComponentKind kind, std::u16string text);
    ProError setAction(std::string_view operation, std::string_view dialog, std::string_view button, ProUIAction action,
                       ProAppData data);
    // Plays the script's presses for this dialog until an action ends it.
    ProError activate(std::string_view operation, std::string_view dialog, UserScript& script, int* status);
    ProError exit(std::string_view operation, std::string_view dialog, int status);
    ProError destroy(std::string_view operation, std::string_view dialog);

    // A dialog that exists (created and not destroyed), or null.
    const Dialog* find(std::string_view dialog) const;
    size_t open() const { return dialogs_.size(); }
    const std::vector<ShownDialog>& history() const { return history_; }

private:
    Dialog* existing(std::string_view operation, std::string_view dialog);
    DialogComponent* component(std::string_view operation, std::string_view dialog, std::string_view name,
                               ComponentKind kind);
    ProError fail(std::string_view operation, ProError status, const std::string& reason);
    ProError pressNext(std::string_view operation, std::string_view dialog, UserScript& script, size_t shown);

    ErrorLog& errors_;
    std::map<std::string, Dialog, std::less<>> dialogs_;
    std::vector<ShownDialog> history_;
};

}  // namespace host
