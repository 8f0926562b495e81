// vantrel-host press NAME: runs one of the plug-in's commands, on a model if
// one is given, with the user's presses in the dialogs that it opens.
#include <filesystem>
#include <iostream>

#include "host/DialogBoard.h"
#include "host/cli/CommandListing.h"
#include "host/cli/KernelSetup.h"
#include "host/cli/StartedPlugin.h"
#include "host/cli/Subcommands.h"
#include "host/realmodel/ModelLoading.h"

namespace host::cli {

int runPress(const Invocation& invocation) {
    // The model is named from here; the plug-in runs in its working directory.
    std::optional<std::filesystem::path> model;
    if (invocation.model) {
        model = std::filesystem::absolute(*invocation.model);
        prepareKernel();
    }
    return withStartedPlugin(invocation, [&](Session& session, Host& host) {
        if (model) realmodel::loadModelIntoSession(session, model->string());
        for (const auto& [dialog, button] : invocation.clicks) session.script().pressButton(dialog, button);
        const std::string& command = operandOf(invocation);
        const int answer = host.press(command);
        if (invocation.show) {
            for (const ShownDialog& shown : session.dialogs().history())
                std::cout << drawDialog(shown.name, shown.components);
            if (session.dialogs().history().empty())
                std::cout << "no dialog opened" << (model ? "" : " (the plug-in's dialogs need a model: --model)") << "\n";
        }
        if (!session.script().finished()) session.errors().add("a --click found no dialog to press it in");
        std::cout << "pressed \"" << command << "\": the action answered " << answer << "\n";
        listIcons(session.commands(), std::cout);
    });
}

}  // namespace host::cli
