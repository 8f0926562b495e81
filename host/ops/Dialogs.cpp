// Dialogs built by the plug-in: see DialogBoard for their model and the
// scripted play of their activation.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

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

ProError ops::ProUIDialogLabelAdd(int context, const char* dialog, const char* label, ProUIGridopts* grid) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog || !label) return PRO_TK_BAD_INPUTS;
    return session->dialogs().add("ProUIDialogLabelAdd", dialog, label, ComponentKind::Label, grid);
}

ProError ops::ProUILabelTextSet(int context, const char* dialog, const char* label, const ProWchar* text) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog || !label || !text) return PRO_TK_BAD_INPUTS;
    return session->dialogs().setText("ProUILabelTextSet", dialog, label, ComponentKind::Label, text);
}

ProError ops::ProUIDialogPushbuttonAdd(int context, const char* dialog, const char* button, ProUIGridopts* grid) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog || !button) return PRO_TK_BAD_INPUTS;
    return session->dialogs().add("ProUIDialogPushbuttonAdd", dialog, button, ComponentKind::PushButton, grid);
}

ProError ops::ProUIPushbuttonTextSet(int context, const char* dialog, const char* button, const ProWchar* text) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog || !button || !text) return PRO_TK_BAD_INPUTS;
    return session->dialogs().setText("ProUIPushbuttonTextSet", dialog, button, ComponentKind::PushButton, text);
}

ProError ops::ProUIPushbuttonActivateActionSet(int context, const char* dialog, const char* button, ProUIAction action,
                                               ProAppData data) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!dialog || !button) return PRO_TK_BAD_INPUTS;
    return session->dialogs().setAction("ProUIPushbuttonActivateActionSet", dialog, button, action, data);
}

}  // namespace host
