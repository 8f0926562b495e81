#include "toolkit/Startup.h"

#include <cstring>

#include "platform/CodePage.h"
#include "toolkit/HostBinding.h"
#include "toolkit/TextDirectories.h"
#include "toolkit/btk/Foundation.h"
#include "toolkit/btk/TextConversion.h"

namespace toolkit {
namespace {

void copyText(char (&target)[hostVersionSize], const char* text) {
    std::strncpy(target, text ? text : "", hostVersionSize - 1);
    target[hostVersionSize - 1] = '\0';
}

// Narrow text from the host comes in the locale's code page unless the host
// runs with Unicode encoding.
void setUpTextConversion() {
    ProBoolean enabled = PRO_B_FALSE;
    if (ProToolkitUnicodeencodingIsEnabled(&enabled) == PRO_TK_NO_ERROR && !enabled) {
        btk::setUpLocaleCodedText();
    }
}

void setUpLanguage() {
    btk::setLanguage(hostLanguage);
    hostTextDirectories = deriveTextDirectories(hostTextRoot, hostLanguage);
    btk::setMessageDirectory(platform::systemToWide(hostTextDirectories.resources));
}

}  // namespace
}  // namespace toolkit

int user_initialize_plus(int argc, char** argv, const char* version, const char* build, int, ProWchar* errorText,
                         const char* textRoot, const char*, const char* auxiliaryPath, int context, int,
                         const HostFunctionEntry* table, int count, int language) {
    using namespace toolkit;
    // The table comes first: every later step calls the host through it.
    hostFunctionTable = table;
    hostFunctionCount = count;
    applicationContext = context;
    hostLanguage = language;
    hostTextRoot = textRoot;
    hostAuxiliaryPath = auxiliaryPath;

    setUpTextConversion();

    copyText(hostVersion, version);
    copyText(hostBuild, build);
    if (errorText) errorText[0] = u'\0';

    setUpLanguage();

    // A failing step ends the start-up with its status.
    int runMode = 0;
    ProError status = ProRunmodeGet(&runMode);
    if (status != PRO_TK_NO_ERROR) return status;
    btk::setRunMode(runMode, runMode != 0);

    char* displayVersion = nullptr;
    if (ProEngineerDisplayversionGet(&displayVersion) != PRO_TK_NO_ERROR) {
        displayVersion = const_cast<char*>(version);
    }
    ProUndoclearBypassInitialize();
    // The plug-in's status is the result; the version text is released in any
    // case, whether it came from the host's call or from the arguments.
    status = user_initialize(argc, argv, displayVersion, build, errorText);
    ProStringFree(displayVersion);
    return status;
}

void user_terminate_plus() { user_terminate(); }
