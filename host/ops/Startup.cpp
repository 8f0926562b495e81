// The questions the plug-in asks while it starts, and the host's free calls
// for the texts it hands out.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

ProError ops::ProToolkitUnicodeencodingIsEnabled(int context, ProBoolean* enabled) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!enabled) return PRO_TK_BAD_INPUTS;
    *enabled = session->unicodeEncoding() ? PRO_B_TRUE : PRO_B_FALSE;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProRunmodeGet(int context, int* mode) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!mode) return PRO_TK_BAD_INPUTS;
    *mode = session->runMode();
    return PRO_TK_NO_ERROR;
}

// The text is the host's: the plug-in gives it back with ProStringFree.
ProError ops::ProEngineerDisplayversionGet(int context, char** version) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    if (!version) return PRO_TK_BAD_INPUTS;
    if (!session->displayVersion()) return PRO_TK_GENERAL_ERROR;
    *version = session->handedOutStrings().give(*session->displayVersion());
    return PRO_TK_NO_ERROR;
}

ProError ops::ProUndoclearBypassInitialize(int context) {
    return sessionFor(context) ? PRO_TK_NO_ERROR : PRO_TK_GENERAL_ERROR;
}

ProError ops::ProStringFree(int context, char* text) {
    Session* session = sessionFor(context);
    if (!session) return PRO_TK_GENERAL_ERROR;
    return session->handedOutStrings().release(text) ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

}  // namespace host
