// Dialogs built by the plug-in, their labels and push buttons: see
// DialogBoard for their model and the scripted play of their activation.
#include "host/ops/DialogSupport.h"
#include "host/ops/Operations.h"

namespace host {

using ops::addComponent;
using ops::onComponent;

ProError ops::ProUIDialogCreate(int context, const char* dialog, const char* resource) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session->dialogs().create("ProUIDialogCreate", dialog, textOf(resource));
}

ProError ops::ProUIDialogActivate(int context, const char* dialog, int* status) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session->dialogs().activate("ProUIDialogActivate", dialog, session->script(), status);
}

ProError ops::ProUIDialogExit(int context, const char* dialog, int status) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session->dialogs().exit("ProUIDialogExit", dialog, status);
}

ProError ops::ProUIDialogDestroy(int context, const char* dialog) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session->dialogs().destroy("ProUIDialogDestroy", dialog);
}

ProError ops::ProUIDialogDisableResizing(int context, const char* dialog) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session->dialogs().disableResizing("ProUIDialogDisableResizing", dialog);
}

ProError ops::ProUIDialogLabelAdd(int context, const char* dialog, const char* label, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogLabelAdd", dialog, nullptr, label, ComponentKind::Label, grid);
}

ProError ops::ProUILabelTextSet(int context, const char* dialog, const char* label, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUILabelTextSet", dialog, label, ComponentKind::Label, [&](auto& c, auto&) {
        c.text = text;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUILabelUnattachLeft(int context, const char* dialog, const char* label) {
    return onComponent(context, "ProUILabelUnattachLeft", dialog, label, ComponentKind::Label, [](auto& c, auto&) {
        c.unattachedLeft = true;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUIDialogPushbuttonAdd(int context, const char* dialog, const char* button, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogPushbuttonAdd", dialog, nullptr, button, ComponentKind::PushButton, grid);
}

ProError ops::ProUIPushbuttonTextSet(int context, const char* dialog, const char* button, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUIPushbuttonTextSet", dialog, button, ComponentKind::PushButton,
                       [&](auto& c, auto&) {
                           c.text = text;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIPushbuttonHelptextSet(int context, const char* dialog, const char* button, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(context, "ProUIPushbuttonHelptextSet", dialog, button, ComponentKind::PushButton,
                       [&](auto& c, auto&) {
                           c.helpText = text;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIPushbuttonEnable(int context, const char* dialog, const char* button) {
    return onComponent(context, "ProUIPushbuttonEnable", dialog, button, ComponentKind::PushButton,
                       [](auto& c, auto&) {
                           c.enabled = true;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIPushbuttonActivateActionSet(int context, const char* dialog, const char* button, ProUIAction action,
                                               ProAppData data) {
    return onComponent(context, "ProUIPushbuttonActivateActionSet", dialog, button, ComponentKind::PushButton,
                       [&](auto& c, auto&) {
                           c.action = action;
                           c.actionData = data;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIDialogSeparatorAdd(int context, const char* dialog, const char* separator, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogSeparatorAdd", dialog, nullptr, separator, ComponentKind::Separator, grid);
}

ProError ops::ProUIDialogLayoutAdd(int context, const char* dialog, const char* layout, ProUIGridopts* grid) {
    return addComponent(context, "ProUIDialogLayoutAdd", dialog, nullptr, layout, ComponentKind::Layout, grid);
}

ProError ops::ProUILayoutUnattachLeft(int context, const char* dialog, const char* layout) {
    return onComponent(context, "ProUILayoutUnattachLeft", dialog, layout, ComponentKind::Layout, [](auto& c, auto&) {
        c.unattachedLeft = true;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUILayoutUnattachRight(int context, const char* dialog, const char* layout) {
    return onComponent(context, "ProUILayoutUnattachRight", dialog, layout, ComponentKind::Layout,
                       [](auto& c, auto&) {
                           c.unattachedRight = true;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUILayoutPushbuttonAdd(int context, const char* dialog, const char* layout, const char* button,
                                       ProUIGridopts* grid) {
    if (!layout) return PRO_TK_BAD_INPUTS;
    return addComponent(context, "ProUILayoutPushbuttonAdd", dialog, layout, button, ComponentKind::PushButton, grid);
}

ProError ops::ProUILayoutInputpanelAdd(int context, const char* dialog, const char* layout, const char* panel,
                                       ProUIGridopts* grid) {
    return addComponent(context, "ProUILayoutInputpanelAdd", dialog, layout, panel, ComponentKind::InputPanel, grid);
}

}  // namespace host
