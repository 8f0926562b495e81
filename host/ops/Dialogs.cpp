// Dialogs built by the plug-in: see DialogBoard for their model and the
// scripted play of their activation.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

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

ProError ops::ProUIDialogLabelAdd(Session& session, const char* dialog, const char* label, ProUIGridopts* grid) {
    if (!dialog || !label) return PRO_TK_BAD_INPUTS;
    return session.dialogs().add("ProUIDialogLabelAdd", dialog, label, ComponentKind::Label, grid);
}

ProError ops::ProUILabelTextSet(Session& session, const char* dialog, const char* label, const ProWchar* text) {
    if (!dialog || !label || !text) return PRO_TK_BAD_INPUTS;
    return session.dialogs().setText("ProUILabelTextSet", dialog, label, ComponentKind::Label, text);
}

ProError ops::ProUIDialogPushbuttonAdd(Session& session, const char* dialog, const char* button, ProUIGridopts* grid) {
    if (!dialog || !button) return PRO_TK_BAD_INPUTS;
    return session.dialogs().add("ProUIDialogPushbuttonAdd", dialog, button, ComponentKind::PushButton, grid);
}

ProError ops::ProUIPushbuttonTextSet(Session& session, const char* dialog, const char* button, const ProWchar* text) {
    if (!dialog || !button || !text) return PRO_TK_BAD_INPUTS;
    return session.dialogs().setText("ProUIPushbuttonTextSet", dialog, button, ComponentKind::PushButton, text);
}

ProError ops::ProUIPushbuttonActivateActionSet(Session& session, const char* dialog, const char* button, ProUIAction action,
                                               ProAppData data) {
    if (!dialog || !button) return PRO_TK_BAD_INPUTS;
    return session.dialogs().setAction("ProUIPushbuttonActivateActionSet", dialog, button, action, data);
}

}  // namespace host
