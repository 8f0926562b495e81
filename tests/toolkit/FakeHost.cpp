#include "tests/toolkit/FakeHost.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "toolkit/HostBinding.h"

namespace fakehost {
namespace {

ProError enter(int hostContext, const std::string& line, ProError status = PRO_TK_NO_ERROR) {
    record(hostContext == context ? line : line + " with a wrong context");
    return status;
}

Command* commandOf(uiCmdCmdId id) {
    auto index = reinterpret_cast<std::uintptr_t>(id);
    return index == 0 || index > state().commands.size() ? nullptr : &state().commands[index - 1];
}

std::string nameOf(uiCmdCmdId id) { return commandOf(id) ? commandOf(id)->name : "(no command)"; }

ProError unicodeEnabled(int hostContext, ProBoolean* enabled) {
    *enabled = state().unicodeEnabled;
    return enter(hostContext, "ProToolkitUnicodeencodingIsEnabled");
}

ProError runMode(int hostContext, int* mode) {
    *mode = 1;
    return enter(hostContext, "ProRunmodeGet", state().runModeStatus);
}

ProError displayVersion(int hostContext, char** version) {
    if (state().displayVersionStatus == PRO_TK_NO_ERROR) {
        *version = state().handedOutVersion = std::strcpy(new char[12], "Display 3.0");
    }
    return enter(hostContext, "ProEngineerDisplayversionGet", state().displayVersionStatus);
}

ProError undoclearBypass(int hostContext) { return enter(hostContext, "ProUndoclearBypassInitialize"); }

// Only the display version is the host's own to free.
ProError stringFree(int hostContext, char* text) {
    bool own = text && text == state().handedOutVersion;
    enter(hostContext, "ProStringFree(" + std::string(text ? text : "null") + ")");
    if (own) delete[] std::exchange(state().handedOutVersion, nullptr);
    return own ? PRO_TK_NO_ERROR : PRO_TK_BAD_INPUTS;
}

ProError commandAdd(int hostContext, const char* name, uiCmdCmdActFn action, int priority, uiCmdAccessFn access,
                    ProBoolean flag1, ProBoolean flag2, uiCmdCmdId* command) {
    std::string line = "ProCmdActionAdd(" + std::string(name) + ", " + std::to_string(priority) + ", " +
                       std::to_string(flag1) + ", " + std::to_string(flag2) + ")";
    if (state().commandStatus == PRO_TK_NO_ERROR) {
        state().commands.push_back({name, action, access, ""});
        *command = reinterpret_cast<uiCmdCmdId>(static_cast<std::uintptr_t>(state().commands.size()));
    }
    return enter(hostContext, line, state().commandStatus);
}

ProError commandDesignate(int hostContext, uiCmdCmdId id, const char* label, const char* help,
                          const char* description, const ProWchar* messageFile) {
    std::string file(messageFile, messageFile + std::char_traits<char16_t>::length(messageFile));
    return enter(hostContext,
                 "ProCmdDesignate(" + nameOf(id) + ", " + label + ", " + help + ", " + description + ", " + file + ")",
                 state().commandStatus);
}

ProError commandIconSet(int hostContext, uiCmdCmdId id, const char* icon) {
    if (Command* command = commandOf(id)) command->icon = icon;
    return enter(hostContext, "ProCmdIconSet(" + nameOf(id) + ", " + icon + ")", state().commandStatus);
}

// The cast fails to compile if a fake's signature isn't the host function's.
#define FAKE_ENTRY(operation, fake) \
    HostFunctionEntry { reinterpret_cast<void*>(static_cast<HostSignature<decltype(&::operation)>>(&fake)), #operation "_v" }

const HostFunctionEntry allEntries[] = {
    FAKE_ENTRY(ProToolkitUnicodeencodingIsEnabled, unicodeEnabled),
    FAKE_ENTRY(ProRunmodeGet, runMode),
    FAKE_ENTRY(ProEngineerDisplayversionGet, displayVersion),
    FAKE_ENTRY(ProUndoclearBypassInitialize, undoclearBypass),
    FAKE_ENTRY(ProStringFree, stringFree),
    FAKE_ENTRY(ProCmdActionAdd, commandAdd),
    FAKE_ENTRY(ProCmdDesignate, commandDesignate),
    FAKE_ENTRY(ProCmdIconSet, commandIconSet),
};

}  // namespace

State& state() {
    static State fake;
    return fake;
}

void reset() { state() = State(); }

void record(std::string line) { state().calls.push_back(std::move(line)); }

std::vector<HostFunctionEntry> table(const std::vector<std::string>& without) {
    std::vector<HostFunctionEntry> entries;
    for (const HostFunctionEntry& entry : allEntries) {
        if (std::find(without.begin(), without.end(), entry.name) == without.end()) entries.push_back(entry);
    }
    std::sort(entries.begin(), entries.end(),
              [](const HostFunctionEntry& a, const HostFunctionEntry& b) { return std::strcmp(a.name, b.name) < 0; });
    return entries;
}

void install(const std::vector<HostFunctionEntry>& entries) {
    toolkit::hostFunctionTable = entries.data();
    toolkit::hostFunctionCount = static_cast<std::int32_t>(entries.size());
    toolkit::applicationContext = context;
}

}  // namespace fakehost
