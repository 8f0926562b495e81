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
ProError setProperty(int context, const char* operation, const char* dialog, const char* name, ComponentKind kind,
                     Value DialogComponent::*property, Value value) {
    return onComponent(context, operation, dialog, name, kind, [&](DialogComponent& c, Session&) {
        c.*property = value;
        return PRO_TK_NO_ERROR;
    });
}

ProError setHelp(int context, const char* operation, const char* dialog, const char* name, ComponentKind kind,
                 const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return setProperty(context, operation, dialog, name, kind, &DialogComponent::helpText, std::u16string(text));
}

ProError setUpdateAction(int context, const char* operation, const char* dialog, const char* name,
                         ComponentKind kind, ProUIAction action, ProAppData data) {
    return onComponent(context, operation, dialog, name, kind, [&](DialogComponent& c, Session&) {
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

ProError ops::ProUIDialogSpinboxAdd(int context, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogSpinboxAdd", dialog, nullptr, name, spinbox, grid);
}
ProError ops::ProUISpinboxInputtypeSet(int context, const char* dialog, const char* name, int type) {
    return setProperty(context, "ProUISpinboxInputtypeSet", dialog, name, spinbox, &DialogComponent::inputType, type);
}
ProError ops::ProUISpinboxDigitsSet(int context, const char* dialog, const char* name, int digits) {
    return setProperty(context, "ProUISpinboxDigitsSet", dialog, name, spinbox, &DialogComponent::digits, digits);
}
ProError ops::ProUISpinboxMindoubleSet(int context, const char* dialog, const char* name, double value) {
    return setProperty(context, "ProUISpinboxMindoubleSet", dialog, name, spinbox, &DialogComponent::minimum, value);
}
ProError ops::ProUISpinboxMaxdoubleSet(int context, const char* dialog, const char* name, double value) {
    return setProperty(context, "ProUISpinboxMaxdoubleSet", dialog, name, spinbox, &DialogComponent::maximum, value);
}
ProError ops::ProUISpinboxDoubleincrementSet(int context, const char* dialog, const char* name, double value) {
    return setProperty(context, "ProUISpinboxDoubleincrementSet", dialog, name, spinbox, &DialogComponent::increment,
                       value);
}
ProError ops::ProUISpinboxFastdoubleincrementSet(int context, const char* dialog, const char* name, double value) {
    return setProperty(context, "ProUISpinboxFastdoubleincrementSet", dialog, name, spinbox,
                       &DialogComponent::fastIncrement, value);
}
ProError ops::ProUISpinboxDoubleSet(int context, const char* dialog, const char* name, double value) {
    return setProperty(context, "ProUISpinboxDoubleSet", dialog, name, spinbox, &DialogComponent::doubleValue, value);
}
ProError ops::ProUISpinboxDoubleGet(int context, const char* dialog, const char* name, double* value) {
    if (!value) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUISpinboxDoubleGet", dialog, name, spinbox, [&](DialogComponent& c, Session&) {
        *value = c.doubleValue;
        return PRO_TK_NO_ERROR;
    });
}
ProError ops::ProUISpinboxHelptextSet(int context, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(context, "ProUISpinboxHelptextSet", dialog, name, spinbox, text);
}
ProError ops::ProUISpinboxUpdateActionSet(int context, const char* dialog, const char* name, ProUIAction action,
                                          ProAppData data) {
    return setUpdateAction(context, "ProUISpinboxUpdateActionSet", dialog, name, spinbox, action, data);
}

ProError ops::ProUIDialogSliderAdd(int context, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogSliderAdd", dialog, nullptr, name, slider, grid);
}
ProError ops::ProUISliderMinintegerSet(int context, const char* dialog, const char* name, int value) {
    return setProperty(context, "ProUISliderMinintegerSet", dialog, name, slider, &DialogComponent::integerMinimum,
                       value);
}
ProError ops::ProUISliderMaxintegerSet(int context, const char* dialog, const char* name, int value) {
    return setProperty(context, "ProUISliderMaxintegerSet", dialog, name, slider, &DialogComponent::integerMaximum,
                       value);
}
ProError ops::ProUISliderLengthSet(int context, const char* dialog, const char* name, int length) {
    return setProperty(context, "ProUISliderLengthSet", dialog, name, slider, &DialogComponent::length, length);
}
ProError ops::ProUISliderOrientationSet(int context, const char* dialog, const char* name, int orientation) {
    return setProperty(context, "ProUISliderOrientationSet", dialog, name, slider, &DialogComponent::orientation,
                       orientation);
}
ProError ops::ProUISliderTrackingEnable(int context, const char* dialog, const char* name) {
    return setProperty(context, "ProUISliderTrackingEnable", dialog, name, slider, &DialogComponent::tracking, true);
}
ProError ops::ProUISliderIntegerSet(int context, const char* dialog, const char* name, int value) {
    return setProperty(context, "ProUISliderIntegerSet", dialog, name, slider, &DialogComponent::integerValue, value);
}
ProError ops::ProUISliderIntegerGet(int context, const char* dialog, const char* name, int* value) {
    if (!value) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUISliderIntegerGet", dialog, name, slider, [&](DialogComponent& c, Session&) {
        *value = c.integerValue;
        return PRO_TK_NO_ERROR;
    });
}
ProError ops::ProUISliderHelptextSet(int context, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(context, "ProUISliderHelptextSet", dialog, name, slider, text);
}
ProError ops::ProUISliderUpdateActionSet(int context, const char* dialog, const char* name, ProUIAction action,
                                         ProAppData data) {
    return setUpdateAction(context, "ProUISliderUpdateActionSet", dialog, name, slider, action, data);
}

ProError ops::ProUIDialogCheckbuttonAdd(int context, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogCheckbuttonAdd", dialog, nullptr, name, check, grid);
}
ProError ops::ProUICheckbuttonTextSet(int context, const char* dialog, const char* name, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return setProperty(context, "ProUICheckbuttonTextSet", dialog, name, check, &DialogComponent::text,
                       std::u16string(text));
}
ProError ops::ProUICheckbuttonHelptextSet(int context, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(context, "ProUICheckbuttonHelptextSet", dialog, name, check, text);
}
ProError ops::ProUICheckbuttonSet(int context, const char* dialog, const char* name) {
    return setProperty(context, "ProUICheckbuttonSet", dialog, name, check, &DialogComponent::checked, true);
}
ProError ops::ProUICheckbuttonUnset(int context, const char* dialog, const char* name) {
    return setProperty(context, "ProUICheckbuttonUnset", dialog, name, check, &DialogComponent::checked, false);
}
ProError ops::ProUICheckbuttonGetState(int context, const char* dialog, const char* name, ProBoolean* state) {
    if (!state) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUICheckbuttonGetState", dialog, name, check, [&](DialogComponent& c, Session&) {
        *state = c.checked ? PRO_B_TRUE : PRO_B_FALSE;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUIDialogRadiogroupAdd(int context, const char* dialog, const char* name, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogRadiogroupAdd", dialog, nullptr, name, radio, grid);
}
ProError ops::ProUIRadiogroupNamesSet(int context, const char* dialog, const char* name, int count, char** names) {
    auto texts = textsOf<char, std::string>(count, names);
    if (!texts) return PRO_TK_BAD_INPUTS;
    return setProperty(context, "ProUIRadiogroupNamesSet", dialog, name, radio, &DialogComponent::names, *texts);
}
ProError ops::ProUIRadiogroupLabelsSet(int context, const char* dialog, const char* name, int count,
                                       ProWchar** labels) {
    auto texts = textsOf<ProWchar, std::u16string>(count, labels);
    if (!texts) return PRO_TK_BAD_INPUTS;
    return setProperty(context, "ProUIRadiogroupLabelsSet", dialog, name, radio, &DialogComponent::labels, *texts);
}
ProError ops::ProUIRadiogroupOrientationSet(int context, const char* dialog, const char* name, int orientation) {
    return setProperty(context, "ProUIRadiogroupOrientationSet", dialog, name, radio, &DialogComponent::orientation,
                       orientation);
}
// A selected name must be one of the group's names; one that isn't selects
// nothing, as in the host's own radio groups.
ProError ops::ProUIRadiogroupSelectednamesSet(int context, const char* dialog, const char* name, int count,
                                              char** names) {
    auto texts = textsOf<char, std::string>(count, names);
    if (!texts) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUIRadiogroupSelectednamesSet", dialog, name, radio,
                       [&](DialogComponent& c, Session&) {
                           c.selectedNames.clear();
                           for (const std::string& selected : *texts)
                               if (std::find(c.names.begin(), c.names.end(), selected) != c.names.end())
                                   c.selectedNames.push_back(selected);
                           return PRO_TK_NO_ERROR;
                       });
}
// The names go out as an array that the plug-in frees with ProStringarrayFree.
ProError ops::ProUIRadiogroupSelectednamesGet(int context, const char* dialog, const char* name, int* count,
                                              char*** names) {
    if (!count || !names) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUIRadiogroupSelectednamesGet", dialog, name, radio,
                       [&](DialogComponent& c, Session& session) {
                           *count = static_cast<int>(c.selectedNames.size());
                           *names = session.handedOutStringArrays().give(c.selectedNames);
                           return PRO_TK_NO_ERROR;
                       });
}
ProError ops::ProUIRadiogroupHelptextSet(int context, const char* dialog, const char* name, const ProWchar* text) {
    return setHelp(context, "ProUIRadiogroupHelptextSet", dialog, name, radio, text);
}

ProError ops::ProUIInputpanelInputtypeSet(int context, const char* dialog, const char* name, int type) {
    return setProperty(context, "ProUIInputpanelInputtypeSet", dialog, name, panel, &DialogComponent::inputType, type);
}
ProError ops::ProUIInputpanelMaxlenSet(int context, const char* dialog, const char* name, int length) {
    return setProperty(context, "ProUIInputpanelMaxlenSet", dialog, name, panel, &DialogComponent::maximumLength,
                       length);
}
ProError ops::ProUIInputpanelValueSet(int context, const char* dialog, const char* name, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return setProperty(context, "ProUIInputpanelValueSet", dialog, name, panel, &DialogComponent::value,
                       std::u16string(text));
}
// The text goes out as a copy that the plug-in frees with ProWstringFree.
ProError ops::ProUIInputpanelWidestringGet(int context, const char* dialog, const char* name, ProWchar** text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUIInputpanelWidestringGet", dialog, name, panel,
                       [&](DialogComponent& c, Session& session) {
                           *text = session.handedOutWideStrings().give(c.value);
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProWstringFree(int context, ProWchar* text) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    return session->handedOutWideStrings().release(text) ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

ProError ops::ProStringarrayFree(int context, char** array, int) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    return session->handedOutStringArrays().release(array) ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

}  // namespace host
