#include "host/DialogBoard.h"

#include <algorithm>

namespace host {
namespace {

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

const char* kindName(ComponentKind kind) { return kind == ComponentKind::Label ? "label" : "push button"; }

}  // namespace

DialogComponent* Dialog::find(std::string_view component, ComponentKind kind) {
    auto found = std::find_if(components.begin(), components.end(), [&](const DialogComponent& candidate) {
        return candidate.name == component && candidate.kind == kind;
    });
    return found == components.end() ? nullptr : &*found;
}

const DialogComponent* ShownDialog::find(std::string_view component) const {
    auto found = std::find_if(components.begin(), components.end(),
                              [&](const DialogComponent& candidate) { return candidate.name == component; });
    return found == components.end() ? nullptr : &*found;
}

ProError DialogBoard::fail(std::string_view operation, ProError status, const std::string& reason) {
    errors_.add(std::string(operation) + ": " + reason);
    return status;
}

const Dialog* DialogBoard::find(std::string_view dialog) const {
    auto found = dialogs_.find(dialog);
    return found == dialogs_.end() ? nullptr : &found->second;
}

Dialog* DialogBoard::existing(std::string_view operation, std::string_view dialog) {
    auto found = dialogs_.find(dialog);
    if (found != dialogs_.end()) return &found->second;
    fail(operation, PRO_TK_E_NOT_FOUND, "there is no dialog " + quoted(dialog));
    return nullptr;
}

DialogComponent* DialogBoard::component(std::string_view operation, std::string_view dialog, std::string_view name,
                                        ComponentKind kind) {
    Dialog* owner = existing(operation, dialog);
    if (!owner) return nullptr;
    DialogComponent* found = owner->find(name, kind);
    if (!found)
        fail(operation, PRO_TK_E_NOT_FOUND,
             "dialog " + quoted(dialog) + " has no " + kindName(kind) + " " + quoted(name));
    return found;
}

ProError DialogBoard::create(std::string_view operation, std::string_view dialog, std::string_view resource) {
    if (dialogs_.contains(dialog))
        return fail(operation, PRO_TK_GENERAL_ERROR, "dialog " + quoted(dialog) + " exists already");
    Dialog& created = dialogs_[std::string(dialog)];
    created.name = dialog;
    created.resource = resource;
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::add(std::string_view operation, std::string_view dialog, std::string_view component,
                          ComponentKind kind, const ProUIGridopts* grid) {
    Dialog* owner = existing(operation, dialog);
    if (!owner) return PRO_TK_E_NOT_FOUND;
    if (!grid)
        return fail(operation, PRO_TK_BAD_INPUTS,
                    quoted(component) + " in dialog " + quoted(dialog) + " has no grid options");
    bool taken = std::any_of(owner->components.begin(), owner->components.end(),
                             [&](const DialogComponent& other) { return other.name == component; });
    if (taken)
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "dialog " + quoted(dialog) + " has a component " + quoted(component) + " already");
    DialogComponent& added = owner->components.emplace_back();
    added.name = component;
    added.kind = kind;
    added.row = grid->row;
    added.column = grid->column;
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::setText(std::string_view operation, std::string_view dialog, std::string_view name,
                              ComponentKind kind, std::u16string text) {
    DialogComponent* found = component(operation, dialog, name, kind);
    if (!found) return PRO_TK_E_NOT_FOUND;
    found->text = std::move(text);
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::setAction(std::string_view operation, std::string_view dialog, std::string_view button,
                                ProUIAction action, ProAppData data) {
    DialogComponent* found = component(operation, dialog, button, ComponentKind::PushButton);
    if (!found) return PRO_TK_E_NOT_FOUND;
    found->action = action;
    found->actionData = data;
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::activate(std::string_view operation, std::string_view dialog, UserScript& script, int* status) {
    Dialog* shown = existing(operation, dialog);
    if (!shown) return PRO_TK_E_NOT_FOUND;
    if (shown->active) return fail(operation, PRO_TK_GENERAL_ERROR, "dialog " + quoted(dialog) + " is active already");
    size_t record = history_.size();
    history_.push_back({shown->name, shown->components, {}, std::nullopt});
    shown->active = true;
    shown->exitStatus.reset();
    // The user presses buttons until an action ends the dialog.
    for (;;) {
        if (ProError pressed = pressNext(operation, dialog, script, record); pressed != PRO_TK_NO_ERROR) {
            if (auto still = dialogs_.find(dialog); still != dialogs_.end()) still->second.active = false;
            return pressed;
        }
        auto after = dialogs_.find(dialog);
        if (after == dialogs_.end()) {
            return fail(operation, PRO_TK_GENERAL_ERROR,
                        "dialog " + quoted(dialog) + " was destroyed while it was active");
        }
        if (after->second.exitStatus) {
            after->second.active = false;
            history_[record].exitStatus = after->second.exitStatus;
            if (status) *status = *after->second.exitStatus;
            return PRO_TK_NO_ERROR;
        }
    }
}

ProError DialogBoard::pressNext(std::string_view operation, std::string_view dialog, UserScript& script, size_t shown) {
    std::optional<std::string> press = script.nextButton(dialog);
    if (!press) return PRO_TK_GENERAL_ERROR;
    history_[shown].presses.push_back(*press);
    DialogComponent* button = dialogs_.find(dialog)->second.find(*press, ComponentKind::PushButton);
    if (!button) {
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "the script pressed " + quoted(*press) + " in dialog " + quoted(dialog) +
                        ", which has no such push button");
    }
    if (!button->action) {
        return fail(
            operation, PRO_TK_GENERAL_ERROR,
            "the script pressed " + quoted(*press) + " in dialog " + quoted(dialog) + ", but the button has no action");
    }
    // The action may change the dialog: keep what the call needs.
    ProUIAction action = button->action;
    ProAppData data = button->actionData;
    std::string dialogName(dialog);
    std::string buttonName(*press);
    action(dialogName.data(), buttonName.data(), data);
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::exit(std::string_view operation, std::string_view dialog, int status) {
    Dialog* ending = existing(operation, dialog);
    if (!ending) return PRO_TK_E_NOT_FOUND;
    if (!ending->active) return fail(operation, PRO_TK_GENERAL_ERROR, "dialog " + quoted(dialog) + " is not active");
    ending->exitStatus = status;
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::destroy(std::string_view operation, std::string_view dialog) {
    auto found = dialogs_.find(dialog);
    if (found == dialogs_.end()) return fail(operation, PRO_TK_E_NOT_FOUND, "there is no dialog " + quoted(dialog));
    dialogs_.erase(found);
    return PRO_TK_NO_ERROR;
}

}  // namespace host
