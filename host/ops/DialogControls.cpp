// The controls of the plug-in's dialogs: spinbox, slider, check buttons,
// radio groups and input panels, with the texts and arrays that their
// getters hand out.
#include <algorithm>
#include <optional>

#include "host/ops/DialogSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

using ops::onComponent;

// A setter of one property of one kind of component.
template <typename Value>
ProError setProperty(Session& session, const char* operation, const char* dialog, const char* name, ComponentKind kind,
                     Value DialogComponent::*property, Value value) {
    return onComponent(session, operation, dialog, name, kind, [&](DialogComponent& c, Session&) {
        c.*property = value;
        return PRO_TK_NO_ERROR;
    });
}

ProError setHelp(Session& session, const char* operation, const char* dialog, const char* name, ComponentKind kind,
                 const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return setProperty(session, operation, dialog, name, kind, &DialogComponent::helpText, std::u16string(text));
}

ProError setUpdateAction(Session& session, const char* operation, const char* dialog, const char* name,
                         ComponentKind kind, ProUIAction action, ProAppData data) {
    return onComponent(session, operation, dialog, name, kind, [&](DialogComponent& c, Session&) {
        c.updateAction = action;
        c.updateData = data;
        return PRO_TK_NO_ERROR;
    });
}

// A list of `count` texts from the plug-in: none may be null.
template <typename Char, typename Text>
std::optional<std::vector<Text>> textsOf(int count, Char** texts) {
    if (count < 0 || (count > 0 && !texts)) return std::nullopt;
    std::vector<Text> out;
    for (int i = 0; i < count; ++i) {
        if (!texts[i]) return std::nullopt;
        out.emplace_back(texts[i]);
    }
    return out;
}

constexpr ComponentKind spinbox = ComponentKind::Spinbox;
constexpr ComponentKind slider = ComponentKind::Slider;
constexpr ComponentKind check = ComponentKind::CheckButton;
constexpr ComponentKind radio = ComponentKind::RadioGroup;
constexpr ComponentKind panel = ComponentKind::InputPanel;

}  // namespace

ProError ops::ProUIDialogSpinboxAdd(Session& session, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogSpinboxAdd", dialog, nullptr, name, spinbox, grid);
}
ProError ops::ProUISpinboxInputtypeSet(Session& session, const char* dialog, const char* name, int type) {
    return setProperty(session, "ProUISpinboxInputtypeSet", dialog, name, spinbox, &DialogComponent::inputType, type);
}
ProError ops::ProUISpinboxDigitsSet(Session& session, const char* dialog, const char* name, int digits) {
    return setProperty(session, "ProUISpinboxDigitsSet", dialog, name, spinbox, &DialogComponent::digits, digits);
}
ProError ops::ProUISpinboxMindoubleSet(Session& session, const char* dialog, const char* name, double value) {
    return setProperty(session, "ProUISpinboxMindoubleSet", dialog, name, spinbox, &DialogComponent::minimum, value);
}
ProError ops::ProUISpinboxMaxdoubleSet(Session& session, const char* dialog, const char* name, double value) {
    return setProperty(session, "ProUISpinboxMaxdoubleSet", dialog, name, spinbox, &DialogComponent::maximum, value);
}
ProError ops::ProUISpinboxDoubleincrementSet(Session& session, const char* dialog, const char* name, double value) {
    return setProperty(session, "ProUISpinboxDoubleincrementSet", dialog, name, spinbox, &DialogComponent::increment,
                       value);
}
ProError ops::ProUISpinboxFastdoubleincrementSet(Session& session, const char* dialog, const char* name, double value) {
    return setProperty(session, "ProUISpinboxFastdoubleincrementSet", dialog, name, spinbox,
                       &DialogComponent::fastIncrement, value);
}
ProError ops::ProUISpinboxDoubleSet(Session& session, const char* dialog, const char* name, double value) {
    return setProperty(session, "ProUISpinboxDoubleSet", dialog, name, spinbox, &DialogComponent::doubleValue, value);
}
ProError ops::ProUISpinboxDoubleGet(Session& session, const char* dialog, const char* name, double* value) {
    if (!value) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUISpinboxDoubleGet", dialog, name, spinbox, [&](DialogComponent& c, Session&) {
        *value = c.doubleValue;
        return PRO_TK_NO_ERROR;
    });
}
ProError ops::ProUISpinboxHelptextSet(Session& session, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(session, "ProUISpinboxHelptextSet", dialog, name, spinbox, text);
}
ProError ops::ProUISpinboxUpdateActionSet(Session& session, const char* dialog, const char* name, ProUIAction action,
                                          ProAppData data) {
    return setUpdateAction(session, "ProUISpinboxUpdateActionSet", dialog, name, spinbox, action, data);
}

ProError ops::ProUIDialogSliderAdd(Session& session, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogSliderAdd", dialog, nullptr, name, slider, grid);
}
ProError ops::ProUISliderMinintegerSet(Session& session, const char* dialog, const char* name, int value) {
    return setProperty(session, "ProUISliderMinintegerSet", dialog, name, slider, &DialogComponent::integerMinimum,
                       value);
}
ProError ops::ProUISliderMaxintegerSet(Session& session, const char* dialog, const char* name, int value) {
    return setProperty(session, "ProUISliderMaxintegerSet", dialog, name, slider, &DialogComponent::integerMaximum,
                       value);
}
ProError ops::ProUISliderLengthSet(Session& session, const char* dialog, const char* name, int length) {
    return setProperty(session, "ProUISliderLengthSet", dialog, name, slider, &DialogComponent::length, length);
}
ProError ops::ProUISliderOrientationSet(Session& session, const char* dialog, const char* name, int orientation) {
    return setProperty(session, "ProUISliderOrientationSet", dialog, name, slider, &DialogComponent::orientation,
                       orientation);
}
ProError ops::ProUISliderTrackingEnable(Session& session, const char* dialog, const char* name) {
    return setProperty(session, "ProUISliderTrackingEnable", dialog, name, slider, &DialogComponent::tracking, true);
}
ProError ops::ProUISliderIntegerSet(Session& session, const char* dialog, const char* name, int value) {
    return setProperty(session, "ProUISliderIntegerSet", dialog, name, slider, &DialogComponent::integerValue, value);
}
ProError ops::ProUISliderIntegerGet(Session& session, const char* dialog, const char* name, int* value) {
    if (!value) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUISliderIntegerGet", dialog, name, slider, [&](DialogComponent& c, Session&) {
        *value = c.integerValue;
        return PRO_TK_NO_ERROR;
    });
}
ProError ops::ProUISliderHelptextSet(Session& session, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(session, "ProUISliderHelptextSet", dialog, name, slider, text);
}
ProError ops::ProUISliderUpdateActionSet(Session& session, const char* dialog, const char* name, ProUIAction action,
                                         ProAppData data) {
    return setUpdateAction(session, "ProUISliderUpdateActionSet", dialog, name, slider, action, data);
}

ProError ops::ProUIDialogCheckbuttonAdd(Session& session, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogCheckbuttonAdd", dialog, nullptr, name, check, grid);
}
ProError ops::ProUICheckbuttonTextSet(Session& session, const char* dialog, const char* name, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return setProperty(session, "ProUICheckbuttonTextSet", dialog, name, check, &DialogComponent::text,
                       std::u16string(text));
}
ProError ops::ProUICheckbuttonHelptextSet(Session& session, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(session, "ProUICheckbuttonHelptextSet", dialog, name, check, text);
}
ProError ops::ProUICheckbuttonSet(Session& session, const char* dialog, const char* name) {
    return setProperty(session, "ProUICheckbuttonSet", dialog, name, check, &DialogComponent::checked, true);
}
ProError ops::ProUICheckbuttonUnset(Session& session, const char* dialog, const char* name) {
    return setProperty(session, "ProUICheckbuttonUnset", dialog, name, check, &DialogComponent::checked, false);
}
ProError ops::ProUICheckbuttonGetState(Session& session, const char* dialog, const char* name, ProBoolean* state) {
    if (!state) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUICheckbuttonGetState", dialog, name, check, [&](DialogComponent& c, Session&) {
        *state = c.checked ? PRO_B_TRUE : PRO_B_FALSE;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUIDialogRadiogroupAdd(Session& session, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogRadiogroupAdd", dialog, nullptr, name, radio, grid);
}
ProError ops::ProUIRadiogroupNamesSet(Session& session, const char* dialog, const char* name, int count, char** names) {
    auto texts = textsOf<char, std::string>(count, names);
    if (!texts) return PRO_TK_BAD_INPUTS;
    return setProperty(session, "ProUIRadiogroupNamesSet", dialog, name, radio, &DialogComponent::names, *texts);
}
ProError ops::ProUIRadiogroupLabelsSet(Session& session, const char* dialog, const char* name, int count,
                                       ProWchar** labels) {
    auto texts = textsOf<ProWchar, std::u16string>(count, labels);
    if (!texts) return PRO_TK_BAD_INPUTS;
    return setProperty(session, "ProUIRadiogroupLabelsSet", dialog, name, radio, &DialogComponent::labels, *texts);
}
ProError ops::ProUIRadiogroupOrientationSet(Session& session, const char* dialog, const char* name, int orientation) {
    return setProperty(session, "ProUIRadiogroupOrientationSet", dialog, name, radio, &DialogComponent::orientation,
                       orientation);
}
// A selected name must be one of the group's names; one that isn't selects
// nothing, as in the host's own radio groups.
ProError ops::ProUIRadiogroupSelectednamesSet(Session& session, const char* dialog, const char* name, int count,
                                              char** names) {
    auto texts = textsOf<char, std::string>(count, names);
    if (!texts) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUIRadiogroupSelectednamesSet", dialog, name, radio,
                       [&](DialogComponent& c, Session&) {
                           c.selectedNames.clear();
                           for (const std::string& selected : *texts)
                               if (std::find(c.names.begin(), c.names.end(), selected) != c.names.end())
                                   c.selectedNames.push_back(selected);
                           return PRO_TK_NO_ERROR;
                       });
}
// The names go out as an array that the plug-in frees with ProStringarrayFree.
ProError ops::ProUIRadiogroupSelectednamesGet(Session& session, const char* dialog, const char* name, int* count,
                                              char*** names) {
    if (!count || !names) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUIRadiogroupSelectednamesGet", dialog, name, radio,
                       [&](DialogComponent& c, Session& session) {
                           *count = static_cast<int>(c.selectedNames.size());
                           *names = session.handedOutStringArrays().give(c.selectedNames);
                           return PRO_TK_NO_ERROR;
                       });
}
ProError ops::ProUIRadiogroupHelptextSet(Session& session, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(session, "ProUIRadiogroupHelptextSet", dialog, name, radio, text);
}

ProError ops::ProUIInputpanelInputtypeSet(Session& session, const char* dialog, const char* name, int type) {
    return setProperty(session, "ProUIInputpanelInputtypeSet", dialog, name, panel, &DialogComponent::inputType, type);
}
ProError ops::ProUIInputpanelMaxlenSet(Session& session, const char* dialog, const char* name, int length) {
    return setProperty(session, "ProUIInputpanelMaxlenSet", dialog, name, panel, &DialogComponent::maximumLength,
                       length);
}
ProError ops::ProUIInputpanelValueSet(Session& session, const char* dialog, const char* name, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return setProperty(session, "ProUIInputpanelValueSet", dialog, name, panel, &DialogComponent::value,
                       std::u16string(text));
}
// The text goes out as a copy that the plug-in frees with ProWstringFree.
ProError ops::ProUIInputpanelWidestringGet(Session& session, const char* dialog, const char* name, ProWchar** text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUIInputpanelWidestringGet", dialog, name, panel,
                       [&](DialogComponent& c, Session& session) {
                           *text = session.handedOutWideStrings().give(c.value);
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProWstringFree(Session& session, ProWchar* text) {
    return session.handedOutWideStrings().release(text) ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

ProError ops::ProStringarrayFree(Session& session, char** array, int) {
    return session.handedOutStringArrays().release(array) ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

}  // namespace host
