#include "host/CommandRegistry.h"

#include <algorithm>

#include "host/HostError.h"

namespace host {
namespace {

// The access mode the host asks about: the command's button in the main window.
constexpr int accessModeMainWindow = 0;

uiCmdCmdId idAt(size_t position) {
    return reinterpret_cast<uiCmdCmdId>(static_cast<std::uintptr_t>(position + 1));
}

std::string quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

}  // namespace

RegisteredCommand* CommandRegistry::add(std::string name, uiCmdCmdActFn action, uiCmdAccessFn access) {
    if (find(name)) return nullptr;
    RegisteredCommand& command = commands_.emplace_back();
    command.name = std::move(name);
    command.id = idAt(commands_.size() - 1);
    command.action = action;
    command.access = access;
    return &command;
}

RegisteredCommand* CommandRegistry::find(uiCmdCmdId id) {
    auto position = reinterpret_cast<std::uintptr_t>(id);
    if (position == 0 || position > commands_.size()) return nullptr;
    return &commands_[position - 1];
}

const RegisteredCommand* CommandRegistry::find(std::string_view name) const {
    auto found = std::find_if(commands_.begin(), commands_.end(),
                              [name](const RegisteredCommand& command) { return command.name == name; });
    return found == commands_.end() ? nullptr : &*found;
}

int CommandRegistry::press(std::string_view name) {
    const RegisteredCommand* command = find(name);
    if (!command) throw HostError("unknown command " + quoted(name));
    if (!command->action) throw HostError("command " + quoted(name) + " belongs to a plug-in that is no longer loaded");
    if (command->access) {
        int access = command->access(accessModeMainWindow);
        if (access != commandAvailable) {
            throw HostError("command " + quoted(name) + " is not available (its access function answered " +
                            std::to_string(access) + ")");
        }
    }
    return command->action();
}

void CommandRegistry::detachActions() {
    for (RegisteredCommand& command : commands_) {
        command.action = nullptr;
        command.access = nullptr;
    }
}

}  // namespace host
