// The questions the plug-in asks while it starts, and the host's free calls
// for the texts it hands out.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

ProError ops::ProToolkitUnicodeencodingIsEnabled(Session& session, ProBoolean* enabled) {
    if (!enabled) return PRO_TK_BAD_INPUTS;
    *enabled = session.unicodeEncoding() ? PRO_B_TRUE : PRO_B_FALSE;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProRunmodeGet(Session& session, int* mode) {
    if (!mode) return PRO_TK_BAD_INPUTS;
    *mode = session.runMode();
    return PRO_TK_NO_ERROR;
}

// The text is the host's: the plug-in gives it back with ProStringFree.
ProError ops::ProEngineerDisplayversionGet(Session& session, char** version) {
    if (!version) return PRO_TK_BAD_INPUTS;
    *version = session.handedOutStrings().give(session.displayVersion());
    return PRO_TK_NO_ERROR;
}

ProError ops::ProUndoclearBypassInitialize(Session&) {
    return PRO_TK_NO_ERROR;
}

ProError ops::ProStringFree(Session& session, char* text) {
    return session.handedOutStrings().release(text) ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

}  // namespace host
