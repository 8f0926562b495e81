// Message texts from the plug-in's message files.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

// The buffer is a line: the text is cut to fit. A key that can't be resolved
// leaves the buffer empty and the reason in the session's error log.
ProError ops::ProMessageToBuffer(Session& session, ProWchar* buffer, const ProWchar* messageFile, const char* key) {
    if (!buffer || !messageFile || !key) return PRO_TK_BAD_INPUTS;
    TextLookup lookup = session.texts().message(std::u16string_view(messageFile), key);
    if (!lookup.text) {
        buffer[0] = u'\0';
        session.errors().add("ProMessageToBuffer: " + lookup.error);
        return PRO_TK_E_NOT_FOUND;
    }
    copyToLine(buffer, *lookup.text);
    return PRO_TK_NO_ERROR;
}

}  // namespace host
