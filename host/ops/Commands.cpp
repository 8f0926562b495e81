// Registering commands, naming them through the message file, and their icons.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

// The host's status for a name that is registered already.
constexpr ProError nameAlreadyRegistered = -5;

}  // namespace

// On failure the output is left as it was.
ProError ops::ProCmdActionAdd(Session& session, const char* name, uiCmdCmdActFn action, int priority,
                              uiCmdAccessFn access, ProBoolean allowInNonActiveWindow,
                              ProBoolean allowInAccessoryWindow, uiCmdCmdId* command) {
    if (!name || !action || !command) return PRO_TK_BAD_INPUTS;
    RegisteredCommand* added = session.commands().add(name, action, access);
    if (!added) return nameAlreadyRegistered;
    added->priority = priority;
    added->allowInNonActiveWindow = allowInNonActiveWindow;
    added->allowInAccessoryWindow = allowInAccessoryWindow;
    *command = added->id;
    return PRO_TK_NO_ERROR;
}

// Texts that can't be resolved leave the reason in the command's record.
ProError ops::ProCmdDesignate(Session& session, uiCmdCmdId id, const char* labelKey, const char* helpKey,
                              const char* description, const ProWchar* messageFile) {
    RegisteredCommand* command = session.commands().find(id);
    if (!command || !labelKey || !helpKey || !messageFile) return PRO_TK_BAD_INPUTS;
    command->designated = true;
    command->labelKey = labelKey;
    command->helpKey = helpKey;
    command->description = description ? description : "";
    command->messageFile = messageFile;
    command->label = session.texts().message(command->messageFile, command->labelKey);
    command->help = session.texts().message(command->messageFile, command->helpKey);
    return PRO_TK_NO_ERROR;
}

// The icon is set even when no such file exists, as a button with a broken image.
ProError ops::ProCmdIconSet(Session& session, uiCmdCmdId id, const char* iconFile) {
    RegisteredCommand* command = session.commands().find(id);
    if (!command || !iconFile) return PRO_TK_BAD_INPUTS;
    IconSet& icon = command->iconHistory.emplace_back(IconSet{iconFile, session.texts().findIcon(iconFile)});
    return icon.foundAt ? PRO_TK_NO_ERROR : PRO_TK_E_NOT_FOUND;
}

}  // namespace host
