#include "host/cli/CommandListing.h"

#include "platform/CodePage.h"

namespace host::cli {
namespace {

void writeText(std::ostream& out, const char* what, bool designated, const std::string& key,
               const TextLookup& lookup) {
    out << "  " << what;
    if (!designated) {
        out << "(not designated)\n";
        return;
    }
    if (lookup.text) out << platform::wideToSystem(*lookup.text);
    else out << "(unresolved: " << lookup.error << ")";
    out << "  [" << key << "]\n";
}

void writeIcon(std::ostream& out, const RegisteredCommand& command) {
    const IconSet* icon = command.icon();
    if (!icon) out << "(none)";
    else out << icon->file << (icon->foundAt ? " (found)" : " (file not found)");
}

}  // namespace

void listCommands(const CommandRegistry& commands, std::ostream& out) {
    out << commands.size() << (commands.size() == 1 ? " command\n" : " commands\n");
    for (const RegisteredCommand& command : commands) {
        out << "\"" << command.name << "\"\n";
        writeText(out, "label: ", command.designated, command.labelKey, command.label);
        writeText(out, "help:  ", command.designated, command.helpKey, command.help);
        out << "  icon:  ";
        writeIcon(out, command);
        out << "\n";
    }
}

void listIcons(const CommandRegistry& commands, std::ostream& out) {
    out << "icons:\n";
    for (const RegisteredCommand& command : commands) {
        out << "  \"" << command.name << "\": ";
        writeIcon(out, command);
        out << "\n";
    }
}

}  // namespace host::cli
