#include "host/ops/OperationSupport.h"

#include "platform/CodePage.h"

namespace host::ops {

std::string narrowed(std::u16string_view text) { return platform::wideToSystem(text); }

}  // namespace host::ops
