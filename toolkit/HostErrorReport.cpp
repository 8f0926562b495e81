#include "toolkit/HostErrorReport.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/ErrorDialog.h"

namespace toolkit {
namespace {

// The longest report, in characters.
constexpr std::size_t reportLength = 259;

bool reporting = false;

bool channelOn() {
    const char* setting = std::getenv("VANTREL_TOOLKIT_DEBUG");
    return setting && std::strcmp(setting, "1") == 0;
}

}  // namespace

void reportHostError(const char* where, const char* format, ...) {
    if (reporting || !channelOn()) return;
    reporting = true;

    char message[reportLength + 1];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);

    // "%s  :" with the name, then "%s:  %s\n" with the name and the message.
    std::string text = std::string(where) + "  :" + where + ":  " + message + "\n";
    if (text.size() > reportLength) text.resize(reportLength);
    std::fputs(text.c_str(), stderr);
    if (std::getenv("DBG_ERR_SHOW_DIALOG")) platform::showErrorDialog(text);

    reporting = false;
}

}  // namespace toolkit
