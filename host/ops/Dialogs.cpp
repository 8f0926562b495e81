// Dialogs built by the plug-in, their labels and push buttons: see
// DialogBoard for their model and the scripted play of their activation.
#include "host/ops/DialogSupport.h"
#include "host/ops/Operations.h"

namespace host {

using ops::addComponent;
using ops::onComponent;

ProError ops::ProUIDialogCreate(Session& session, const char* dialog, const char* resource) {
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session.dialogs().create("ProUIDialogCreate", dialog, textOf(resource));
}

ProError ops::ProUIDialogActivate(Session& session, const char* dialog, int* status) {
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session.dialogs().activate("ProUIDialogActivate", dialog, session.script(), status);
}

ProError ops::ProUIDialogExit(Session& session, const char* dialog, int status) {
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session.dialogs().exit("ProUIDialogExit", dialog, status);
}

ProError ops::ProUIDialogDestroy(Session& session, const char* dialog) {
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session.dialogs().destroy("ProUIDialogDestroy", dialog);
}

ProError ops::ProUIDialogDisableResizing(Session& session, const char* dialog) {
    if (!dialog) return PRO_TK_BAD_INPUTS;
    return session.dialogs().disableResizing("ProUIDialogDisableResizing", dialog);
}

ProError ops::ProUIDialogLabelAdd(Session& session, const char* dialog, const char* label, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogLabelAdd", dialog, nullptr, label, ComponentKind::Label, grid);
}

ProError ops::ProUILabelTextSet(Session& session, const char* dialog, const char* label, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUILabelTextSet", dialog, label, ComponentKind::Label, [&](auto& c, auto&) {
        c.text = text;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUILabelUnattachLeft(Session& session, const char* dialog, const char* label) {
    return onComponent(session, "ProUILabelUnattachLeft", dialog, label, ComponentKind::Label, [](auto& c, auto&) {
        c.unattachedLeft = true;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUIDialogPushbuttonAdd(Session& session, const char* dialog, const char* button, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogPushbuttonAdd", dialog, nullptr, button, ComponentKind::PushButton, grid);
}

ProError ops::ProUIPushbuttonTextSet(Session& session, const char* dialog, const char* button, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUIPushbuttonTextSet", dialog, button, ComponentKind::PushButton,
                       [&](auto& c, auto&) {
                           c.text = text;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIPushbuttonHelptextSet(Session& session, const char* dialog, const char* button, const ProWchar* text) {
    if (!text) return PRO_TK_BAD_INPUTS;
    return onComponent(session, "ProUIPushbuttonHelptextSet", dialog, button, ComponentKind::PushButton,
                       [&](auto& c, auto&) {
                           c.helpText = text;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIPushbuttonEnable(Session& session, const char* dialog, const char* button) {
    return onComponent(session, "ProUIPushbuttonEnable", dialog, button, ComponentKind::PushButton,
                       [](auto& c, auto&) {
                           c.enabled = true;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIPushbuttonActivateActionSet(Session& session, const char* dialog, const char* button, ProUIAction action,
                                               ProAppData data) {
    return onComponent(session, "ProUIPushbuttonActivateActionSet", dialog, button, ComponentKind::PushButton,
                       [&](auto& c, auto&) {
                           c.action = action;
                           c.actionData = data;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUIDialogSeparatorAdd(Session& session, const char* dialog, const char* separator, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogSeparatorAdd", dialog, nullptr, separator, ComponentKind::Separator, grid);
}

ProError ops::ProUIDialogLayoutAdd(Session& session, const char* dialog, const char* layout, ProUIGridopts* grid) {
    return addComponent(session, "ProUIDialogLayoutAdd", dialog, nullptr, layout, ComponentKind::Layout, grid);
}

ProError ops::ProUILayoutUnattachLeft(Session& session, const char* dialog, const char* layout) {
    return onComponent(session, "ProUILayoutUnattachLeft", dialog, layout, ComponentKind::Layout, [](auto& c, auto&) {
        c.unattachedLeft = true;
        return PRO_TK_NO_ERROR;
    });
}

ProError ops::ProUILayoutUnattachRight(Session& session, const char* dialog, const char* layout) {
    return onComponent(session, "ProUILayoutUnattachRight", dialog, layout, ComponentKind::Layout,
                       [](auto& c, auto&) {
                           c.unattachedRight = true;
                           return PRO_TK_NO_ERROR;
                       });
}

ProError ops::ProUILayoutPushbuttonAdd(Session& session, const char* dialog, const char* layout, const char* button,
                                       ProUIGridopts* grid) {
    if (!layout) return PRO_TK_BAD_INPUTS;
    return addComponent(session, "ProUILayoutPushbuttonAdd", dialog, layout, button, ComponentKind::PushButton, grid);
}

ProError ops::ProUILayoutInputpanelAdd(Session& session, const char* dialog, const char* layout, const char* panel,
                                       ProUIGridopts* grid) {
    return addComponent(session, "ProUILayoutInputpanelAdd", dialog, layout, panel, ComponentKind::InputPanel, grid);
}

}  // namespace host
