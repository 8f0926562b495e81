// The file dialogs, answered by the script.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

constexpr size_t pathCapacity = sizeof(ProPath) / sizeof(ProWchar);

// Records what the plug-in offered, then answers with the script's next
// file: the path (cut to fit), or PRO_TK_USER_ABORT for a cancel.
ProError answerFileDialog(Session& session, FileDialogRequest request, ProWchar* chosenPath) {
    std::string title = ops::narrowed(request.title);
    session.fileDialogs().push_back(std::move(request));
    std::optional<FileAnswer> answer = session.script().nextFile(title);
    if (!answer) return PRO_TK_GENERAL_ERROR;
    if (answer->cancelled) return PRO_TK_USER_ABORT;
    ops::copyToBuffer(chosenPath, pathCapacity, answer->path);
    return PRO_TK_NO_ERROR;
}

// Both file dialogs: the shortcut lists are not shown by the headless host.
ProError fileDialog(Session& session, const char* operation, const ProWchar* title, const ProWchar* filter,
                    const ProWchar* defaultDirectory, const ProWchar* defaultName, ProWchar* chosenPath) {
    if (!chosenPath) return PRO_TK_BAD_INPUTS;
    FileDialogRequest request{operation, std::u16string(ops::textOf(title)), std::u16string(ops::textOf(filter)),
                              std::u16string(ops::textOf(defaultDirectory)), std::u16string(ops::textOf(defaultName))};
    return answerFileDialog(session, std::move(request), chosenPath);
}

}  // namespace

ProError ops::ProFileSave(Session& session, const ProWchar* title, const ProWchar* filter, ProLine*, ProLine*,
                          const ProWchar* defaultDirectory, const ProWchar* defaultName, ProPath chosenPath) {
    return fileDialog(session, "ProFileSave", title, filter, defaultDirectory, defaultName, chosenPath);
}

ProError ops::ProFileOpen(Session& session, const ProWchar* title, const ProWchar* filter, ProLine*, ProLine*,
                          const ProWchar* defaultDirectory, const ProWchar* defaultName, ProPath chosenPath) {
    return fileDialog(session, "ProFileOpen", title, filter, defaultDirectory, defaultName, chosenPath);
}

}  // namespace host
