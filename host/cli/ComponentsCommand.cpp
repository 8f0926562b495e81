// vantrel-host components MODEL: the component paths of an assembly, with the
// ids that the plug-in sees, for naming the components that a motion moves.
#include <iostream>

#include "host/Session.h"
#include "host/cli/KernelSetup.h"
#include "host/cli/Subcommands.h"
#include "host/realmodel/ModelLoading.h"
#include "host/realmodel/MotionRecording.h"

namespace host::cli {

int runComponents(const Invocation& invocation) {
    prepareKernel();
    Session session;
    const realmodel::LoadedModel loaded = realmodel::loadModelIntoSession(session, operandOf(invocation));
    const std::vector<AssemblyComponent> paths = listComponentPaths(*loaded.models.top);
    if (paths.empty()) std::cerr << "vantrel-host: " << operandOf(invocation) << " has no components\n";
    std::cout << describeComponentPaths(paths);
    return 0;
}

}  // namespace host::cli
