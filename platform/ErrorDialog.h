#pragma once
// A message put in front of the developer at once: a modal box on Windows, the
// terminal elsewhere. For diagnostics only; the user never sees it.
#include <string>

namespace platform {

void showErrorDialog(const std::string& text);

}  // namespace platform
