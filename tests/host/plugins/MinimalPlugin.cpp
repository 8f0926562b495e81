// A tiny plug-in for the host's tests: it finds the host's functions in the
// table by hand, records what it was given, registers "Test Command" and
// "Unavailable Command", and starts with the status in the configuration
// option "test_plugin_start_status" if there is one. Like a real plug-in it
// reads a settings file in the working directory: the first line of
// "test_plugin_settings.txt", if there is one, names the test command's icon.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "tests/host/plugins/TestPluginRecord.h"

namespace {

TestPluginRecord record;
const HostFunctionEntry* hostTable = nullptr;
int hostCount = 0;
int hostContext = 0;
uiCmdCmdId testCommand = nullptr;

void* findHostFunction(const char* name) {
    for (int index = 0; index < hostCount; ++index) {
        if (std::strcmp(hostTable[index].name, name) == 0) return hostTable[index].function;
    }
    return nullptr;
}

template <typename Operation, typename... Arguments>
ProError callHost(const char* name, Arguments... arguments) {
    auto function = reinterpret_cast<HostSignature<Operation>>(findHostFunction(name));
    return function ? function(hostContext, arguments...) : PRO_TK_GENERAL_ERROR;
}

#define CALL_HOST(operation, ...) callHost<decltype(&::operation)>(#operation "_v" __VA_OPT__(, ) __VA_ARGS__)

int pressTestCommand() {
    ++record.presses;
    record.pressIconStatus = CALL_HOST(ProCmdIconSet, testCommand, "pressed.png");
    ProLine buffer;
    std::fill(std::begin(buffer), std::end(buffer), u'x');
    record.messageStatus = CALL_HOST(ProMessageToBuffer, buffer, u"test_plugin_msg.txt", "testMessage");
    record.message.assign(buffer, std::find(std::begin(buffer), std::end(buffer), u'\0'));
    return testCommandAnswer;
}

int available(int) { return 3; }
int unavailable(int) { return 0; }

bool sortedByName(const HostFunctionEntry* table, int count) {
    for (int index = 1; index < count; ++index) {
        if (std::strcmp(table[index - 1].name, table[index].name) >= 0) return false;
    }
    return true;
}

int configuredStartStatus() {
    ProLine value{};
    if (CALL_HOST(ProConfigoptGet, "test_plugin_start_status", value) != PRO_TK_NO_ERROR) return 0;
    std::string digits(value, std::find(std::begin(value), std::end(value), u'\0'));
    return std::atoi(digits.c_str());
}

void askStartupQuestions(const char* version) {
    record.unicodeStatus = CALL_HOST(ProToolkitUnicodeencodingIsEnabled, &record.unicode);
    record.runModeStatus = CALL_HOST(ProRunmodeGet, &record.runMode);
    char* displayVersion = nullptr;
    record.displayVersionStatus = CALL_HOST(ProEngineerDisplayversionGet, &displayVersion);
    if (displayVersion) {
        record.displayVersion = displayVersion;
        record.versionFreeStatus = CALL_HOST(ProStringFree, displayVersion);
    }
    record.foreignFreeStatus = CALL_HOST(ProStringFree, const_cast<char*>(version));
    record.undoclearStatus = CALL_HOST(ProUndoclearBypassInitialize);
}

std::string iconFromSettings() {
    std::string icon = "test.png";
    std::ifstream settings("test_plugin_settings.txt");
    std::getline(settings, icon);
    return icon;
}

void registerCommands() {
    record.actionAddStatus = CALL_HOST(ProCmdActionAdd, "Test Command", &pressTestCommand, 2, &available,
                                       PRO_B_TRUE, PRO_B_FALSE, &testCommand);
    uiCmdCmdId duplicate = nullptr;
    record.duplicateAddStatus = CALL_HOST(ProCmdActionAdd, "Test Command", &pressTestCommand, 2, &available,
                                          PRO_B_TRUE, PRO_B_FALSE, &duplicate);
    record.designateStatus = CALL_HOST(ProCmdDesignate, testCommand, "testCommand", "testCommandHelp",
                                       "Test Command", u"test_plugin_msg.txt");
    record.iconStatus = CALL_HOST(ProCmdIconSet, testCommand, iconFromSettings().c_str());
    uiCmdCmdId unavailableCommand = nullptr;
    CALL_HOST(ProCmdActionAdd, "Unavailable Command", &pressTestCommand, 2, &unavailable, PRO_B_TRUE, PRO_B_FALSE,
              &unavailableCommand);
}

}  // namespace

extern "C" int user_initialize_plus(int argc, char** argv, const char* version, const char* build, int,
                                    ProWchar* errorText, const char* textRoot, const char*, const char*,
                                    int context, int, const HostFunctionEntry* table, int count, int language) {
    hostTable = table;
    hostCount = count;
    hostContext = context;
    record.argc = argc;
    record.argvNull = argv == nullptr;
    record.version = version;
    record.build = build;
    record.textRoot = textRoot;
    record.context = context;
    record.functionCount = count;
    record.language = language;
    record.tableSorted = sortedByName(table, count);
    errorText[0] = u'\0';
    askStartupQuestions(version);
    if (int status = configuredStartStatus()) {
        std::copy_n(u"start refused", 14, errorText);
        return status;
    }
    registerCommands();
    return 0;
}

extern "C" void user_terminate_plus() { ++record.terminations; }

extern "C" TestPluginRecord* test_plugin_record() { return &record; }
