#include "host/DialogBoard.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "platform/Utf8.h"

namespace host {
namespace {

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

template <typename Components>
auto findIn(Components& components, std::string_view name) -> decltype(&components.front()) {
    auto found = std::find_if(components.begin(), components.end(),
                              [&](const DialogComponent& candidate) { return candidate.name == name; });
    return found == components.end() ? nullptr : &*found;
}

// A number as the user types it: the whole text must be the number.
std::optional<double> parseNumber(const std::string& text) {
    char* end = nullptr;
    double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0') return std::nullopt;
    return value;
}

std::optional<bool> parseState(const std::string& text) {
    if (text == "on" || text == "1") return true;
    if (text == "off" || text == "0") return false;
    return std::nullopt;
}

}  // namespace

const char* kindName(ComponentKind kind) {
    switch (kind) {
        case ComponentKind::Label: return "label";
        case ComponentKind::PushButton: return "push button";
        case ComponentKind::Spinbox: return "spinbox";
        case ComponentKind::Slider: return "slider";
        case ComponentKind::CheckButton: return "check button";
        case ComponentKind::RadioGroup: return "radio group";
        case ComponentKind::Separator: return "separator";
        case ComponentKind::Layout: return "layout";
        case ComponentKind::InputPanel: return "input panel";
    }
    return "component";
}

DialogComponent* Dialog::find(std::string_view component) { return findIn(components, component); }
const DialogComponent* Dialog::find(std::string_view component) const { return findIn(components, component); }
const DialogComponent* ShownDialog::find(std::string_view component) const { return findIn(components, component); }

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
    DialogComponent* found = owner->find(name);
    if (!found || found->kind != kind) {
        refusals_.push_back(std::string(operation) + ": dialog " + quoted(dialog) + " has no " + kindName(kind) + " " +
                            quoted(name));
        return nullptr;
    }
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

ProError DialogBoard::add(std::string_view operation, std::string_view dialog, std::string_view layout,
                          std::string_view component, ComponentKind kind, const ProUIGridopts* grid) {
    Dialog* owner = existing(operation, dialog);
    if (!owner) return PRO_TK_E_NOT_FOUND;
    if (!grid)
        return fail(operation, PRO_TK_BAD_INPUTS,
                    quoted(component) + " in dialog " + quoted(dialog) + " has no grid options");
    if (!layout.empty()) {
        const DialogComponent* holder = owner->find(layout);
        if (!holder || holder->kind != ComponentKind::Layout)
            return fail(operation, PRO_TK_E_NOT_FOUND, "dialog " + quoted(dialog) + " has no layout " + quoted(layout));
    }
    if (owner->find(component))
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "dialog " + quoted(dialog) + " has a component " + quoted(component) + " already");
    DialogComponent& added = owner->components.emplace_back();
    added.name = component;
    added.kind = kind;
    added.layout = layout;
    added.grid = *grid;
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::disableResizing(std::string_view operation, std::string_view dialog) {
    Dialog* owner = existing(operation, dialog);
    if (!owner) return PRO_TK_E_NOT_FOUND;
    owner->resizable = false;
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::activate(std::string_view operation, std::string_view dialog, UserScript& script, int* status) {
    Dialog* shown = existing(operation, dialog);
    if (!shown) return PRO_TK_E_NOT_FOUND;
    if (shown->active) return fail(operation, PRO_TK_GENERAL_ERROR, "dialog " + quoted(dialog) + " is active already");
    size_t record = history_.size();
    history_.push_back({shown->name, shown->components, {}, {}, std::nullopt});
    shown->active = true;
    shown->exitStatus.reset();
    // The user acts on the dialog until an action ends it.
    for (;;) {
        if (ProError played = playNext(operation, dialog, script, record); played != PRO_TK_NO_ERROR) {
            if (auto still = dialogs_.find(dialog); still != dialogs_.end()) still->second.active = false;
            return played;
        }
        auto after = dialogs_.find(dialog);
        if (after == dialogs_.end()) {
            return fail(operation, PRO_TK_GENERAL_ERROR,
                        "dialog " + quoted(dialog) + " was destroyed while it was active");
        }
        if (after->second.exitStatus) {
            after->second.active = false;
            history_[record].closing = after->second.components;
            history_[record].exitStatus = after->second.exitStatus;
            if (status) *status = *after->second.exitStatus;
            return PRO_TK_NO_ERROR;
        }
    }
}

ProError DialogBoard::playNext(std::string_view operation, std::string_view dialog, UserScript& script, size_t shown) {
    std::optional<DialogStep> step = script.nextStep(dialog);
    if (!step) return PRO_TK_GENERAL_ERROR;
    history_[shown].steps.push_back(step->describe());
    switch (step->kind) {
        case DialogStep::Kind::Press: return press(operation, dialog, step->component);
        case DialogStep::Kind::SetValue: return setValue(operation, dialog, *step);
        case DialogStep::Kind::Close: return PRO_TK_NO_ERROR;  // the plug-in sets no close action
    }
    return PRO_TK_NO_ERROR;
}

ProError DialogBoard::press(std::string_view operation, std::string_view dialog, const std::string& name) {
    const DialogComponent* button = dialogs_.find(dialog)->second.find(name);
    if (!button || button->kind != ComponentKind::PushButton) {
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "the script pressed " + quoted(name) + " in dialog " + quoted(dialog) +
                        ", which has no such push button");
    }
    if (!button->enabled) {
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "the script pressed " + quoted(name) + " in dialog " + quoted(dialog) + ", which is disabled");
    }
    if (!button->action) {
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "the script pressed " + quoted(name) + " in dialog " + quoted(dialog) +
                        ", but the button has no action");
    }
    // The action may change the dialog: keep what the call needs.
    ProUIAction action = button->action;
    ProAppData data = button->actionData;
    std::string dialogName(dialog);
    std::string buttonName(name);
    action(dialogName.data(), buttonName.data(), data);
    return PRO_TK_NO_ERROR;
}

// A value set as a person would set it: a spinbox or a slider then runs its
// update action, as the host does when its value changes.
ProError DialogBoard::setValue(std::string_view operation, std::string_view dialog, const DialogStep& step) {
    DialogComponent* control = dialogs_.find(dialog)->second.find(step.component);
    auto refuse = [&](const std::string& why) {
        return fail(operation, PRO_TK_GENERAL_ERROR,
                    "the script set " + quoted(step.component) + " in dialog " + quoted(dialog) + " to " +
                        quoted(step.value) + ", " + why);
    };
    if (!control) return refuse("which has no such component");
    switch (control->kind) {
        case ComponentKind::Spinbox: {
            std::optional<double> number = parseNumber(step.value);
            if (!number) return refuse("which is no number");
            control->doubleValue = std::clamp(*number, control->minimum, control->maximum);
            break;
        }
        case ComponentKind::Slider: {
            std::optional<double> number = parseNumber(step.value);
            if (!number || *number != static_cast<int>(*number)) return refuse("which is no whole number");
            control->integerValue = std::clamp(static_cast<int>(*number), control->integerMinimum, control->integerMaximum);
            break;
        }
        case ComponentKind::CheckButton: {
            std::optional<bool> state = parseState(step.value);
            if (!state) return refuse("which is neither on nor off");
            control->checked = *state;
            break;
        }
        case ComponentKind::RadioGroup:
            if (std::find(control->names.begin(), control->names.end(), step.value) == control->names.end())
                return refuse("which is none of the group's names");
            control->selectedNames = {step.value};
            break;
        case ComponentKind::InputPanel:
            control->value = platform::utf8ToWide(step.value);
            break;
        default:
            return refuse(std::string("which is a ") + kindName(control->kind));
    }
    if (control->updateAction) {
        ProUIAction action = control->updateAction;
        ProAppData data = control->updateData;
        std::string dialogName(dialog);
        std::string componentName(step.component);
        action(dialogName.data(), componentName.data(), data);
    }
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

namespace {

std::string narrow(const std::u16string& text) { return platform::wideToUtf8(text); }

std::string joined(const std::vector<std::string>& parts, const char* separator) {
    std::string out;
    for (const std::string& part : parts) out += (out.empty() ? "" : separator) + part;
    return out;
}

std::string number(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

// What a component shows and holds, after its kind and name.
std::string describe(const DialogComponent& c) {
    std::string line;
    auto add = [&](const std::string& part) { line += "  " + part; };
    if (!c.text.empty()) add(quoted(narrow(c.text)));
    switch (c.kind) {
        case ComponentKind::Spinbox:
            add("value " + number(c.doubleValue) + " type " + std::to_string(c.inputType) + " digits " +
                std::to_string(c.digits) + " range " + number(c.minimum) + ".." + number(c.maximum) + " step " +
                number(c.increment) + "/" + number(c.fastIncrement));
            break;
        case ComponentKind::Slider:
            add("value " + std::to_string(c.integerValue) + " range " + std::to_string(c.integerMinimum) + ".." +
                std::to_string(c.integerMaximum) + " length " + std::to_string(c.length) + " orientation " +
                std::to_string(c.orientation) + (c.tracking ? " tracking" : ""));
            break;
        case ComponentKind::CheckButton: add(c.checked ? "[x]" : "[ ]"); break;
        case ComponentKind::RadioGroup: {
            std::vector<std::string> options;
            for (size_t i = 0; i < c.names.size(); ++i) {
                std::string label = i < c.labels.size() ? narrow(c.labels[i]) : std::string();
                bool selected = std::count(c.selectedNames.begin(), c.selectedNames.end(), c.names[i]) > 0;
                options.push_back((selected ? "(*) " : "( ) ") + c.names[i] + "=" + quoted(label));
            }
            add(joined(options, " ") + " orientation " + std::to_string(c.orientation));
            break;
        }
        case ComponentKind::InputPanel:
            add("value " + quoted(narrow(c.value)) + " type " + std::to_string(c.inputType) + " max " +
                std::to_string(c.maximumLength));
            break;
        case ComponentKind::PushButton:
            if (!c.enabled) add("disabled");
            break;
        default: break;
    }
    if (c.grid.horz_cells != 1) add("spans " + std::to_string(c.grid.horz_cells));
    if (c.unattachedLeft || c.unattachedRight)
        add(std::string("unattached") + (c.unattachedLeft ? " left" : "") + (c.unattachedRight ? " right" : ""));
    if (!c.helpText.empty()) add("help " + quoted(narrow(c.helpText)));
    return line;
}

void drawLevel(std::ostringstream& out, const std::vector<DialogComponent>& components, const std::string& layout,
               const std::string& indent) {
    std::vector<const DialogComponent*> level;
    for (const DialogComponent& c : components)
        if (c.layout == layout) level.push_back(&c);
    std::stable_sort(level.begin(), level.end(), [](const DialogComponent* a, const DialogComponent* b) {
        return a->grid.row != b->grid.row ? a->grid.row < b->grid.row : a->grid.column < b->grid.column;
    });
    for (const DialogComponent* c : level) {
        out << indent << c->grid.row << "," << c->grid.column << " " << kindName(c->kind) << " " << c->name
            << describe(*c) << "\n";
        if (c->kind == ComponentKind::Layout) drawLevel(out, components, c->name, indent + "  ");
    }
}

}  // namespace

std::string drawDialog(const std::string& name, const std::vector<DialogComponent>& components) {
    std::ostringstream out;
    out << "dialog " << name << "\n";
    drawLevel(out, components, "", "  ");
    return out.str();
}

}  // namespace host
