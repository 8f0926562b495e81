#pragma once
// What the dialog operations share: the look-up of a dialog's component of
// one kind, with the checks that the real host makes of its arguments.
#include "host/DialogBoard.h"
#include "host/ops/OperationSupport.h"

namespace host::ops {

// Runs `change` on the component; an unknown dialog or component, or one of
// another kind, answers an error status (kept among the refusals), never a crash.
template <typename Change>
ProError onComponent(Session& session, const char* operation, const char* dialog, const char* name, ComponentKind kind,
                     Change change) {
    if (!dialog || !name) return PRO_TK_BAD_INPUTS;
    DialogComponent* component = session.dialogs().component(operation, dialog, name, kind);
    if (!component) return PRO_TK_E_NOT_FOUND;
    return change(*component, session);
}

// Adds a component to a dialog or to one of its layouts.
inline ProError addComponent(Session& session, const char* operation, const char* dialog, const char* layout,
                             const char* name, ComponentKind kind, const ProUIGridopts* grid) {
    if (!dialog || !name || (layout == nullptr && kind == ComponentKind::InputPanel)) return PRO_TK_BAD_INPUTS;
    return session.dialogs().add(operation, dialog, layout ? layout : "", name, kind, grid);
}

}  // namespace host::ops
