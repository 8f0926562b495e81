// The host's configuration options.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

ProError ops::ProConfigoptGet(Session& session, const char* option, ProLine value) {
    if (!option || !value) return PRO_TK_BAD_INPUTS;
    const std::u16string* setting = session.configOption(option);
    if (!setting) return PRO_TK_E_NOT_FOUND;
    copyToLine(value, *setting);
    return PRO_TK_NO_ERROR;
}

}  // namespace host
