#pragma once
// The commands that the plug-in registered with the host, as the host's user
// interface would show them: label and help text resolved through the
// plug-in's message file, and the icon as last set.
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/TextResources.h"
#include "toolkit/ProToolkit.h"

namespace host {

// The access function's answer for a command that may run.
inline constexpr int commandAvailable = 3;

struct IconSet {
    std::string file;                                // as the plug-in named it
    std::optional<std::filesystem::path> foundAt;  // none if no such file
};

struct RegisteredCommand {
    std::string name;
    uiCmdCmdId id = nullptr;
    uiCmdCmdActFn action = nullptr;  // null once the plug-in is unloaded
    uiCmdAccessFn access = nullptr;
    int priority = 0;
    ProBoolean allowInNonActiveWindow = PRO_B_FALSE;
    ProBoolean allowInAccessoryWindow = PRO_B_FALSE;

    bool designated = false;
    std::string labelKey;
    std::string helpKey;
    std::string description;
    std::u16string messageFile;
    TextLookup label;
    TextLookup help;

    std::vector<IconSet> iconHistory;  // every icon set, oldest first
    const IconSet* icon() const { return iconHistory.empty() ? nullptr : &iconHistory.back(); }
};

class CommandRegistry {
public:
    // Adds a command and gives it its id; null if the name is taken.
    RegisteredCommand* add(std::string name, uiCmdCmdActFn action, uiCmdAccessFn access);

    // The command with that id or name, or null.
    RegisteredCommand* find(uiCmdCmdId id);
    const RegisteredCommand* find(std::string_view name) const;

    // Runs the command's action as a click on its button would, and answers
    // the action's result. An unknown name, a command of an unloaded plug-in,
    // or one that its access function reports unavailable is a HostError.
    int press(std::string_view name);

    // Forgets the plug-in's functions once its library is gone; the records
    // stay for inspection.
    void detachActions();

    auto begin() const { return commands_.begin(); }
    auto end() const { return commands_.end(); }
    size_t size() const { return commands_.size(); }

private:
    std::deque<RegisteredCommand> commands_;  // ids are positions plus one
};

}  // namespace host
