#pragma once
// An in-process stand-in for the host's function table: start-up and command
// functions that record each call as a line of text and answer as configured.
// The stubs keep the first function found for a name for the whole process,
// so every table made here points at these same functions.
#include <string>
#include <vector>

#include "toolkit/ProToolkit.h"

namespace fakehost {

inline constexpr int context = 4711;

struct Command {
    std::string name;
    uiCmdCmdActFn action = nullptr;
    uiCmdAccessFn access = nullptr;
    std::string icon;  // as last set
};

struct State {
    std::vector<std::string> calls;  // a call with another context is marked so
    std::vector<Command> commands;
    ProError commandStatus = PRO_TK_NO_ERROR;  // the answer of every command call
    ProBoolean unicodeEnabled = PRO_B_TRUE;
    ProError runModeStatus = PRO_TK_NO_ERROR;
    ProError displayVersionStatus = PRO_TK_NO_ERROR;
    char* handedOutVersion = nullptr;  // the display version text not yet freed
};

State& state();
void reset();  // the defaults, no calls, no commands
void record(std::string line);

// The sorted table of the fake functions, less those named.
std::vector<HostFunctionEntry> table(const std::vector<std::string>& without = {});
// Makes `entries`, which must outlive their use, the binding's table.
void install(const std::vector<HostFunctionEntry>& entries);

}  // namespace fakehost
