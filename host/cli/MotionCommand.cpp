// vantrel-host motion MODEL -o MOTION.fra: the host's mechanism records moves
// of the model's components as a motion file.
#include <fstream>
#include <iostream>
#include <sstream>

#include "host/HostError.h"
#include "host/Session.h"
#include "host/cli/KernelSetup.h"
#include "host/cli/Subcommands.h"
#include "host/realmodel/ModelLoading.h"
#include "host/realmodel/MotionRecording.h"

namespace host::cli {

int runMotion(const Invocation& invocation) {
    if (!invocation.output) throw UsageError{"motion needs -o MOTION.fra"};
    if (invocation.motion.moves.empty()) throw UsageError{"motion needs a --rotate or a --translate"};
    for (const Move& move : invocation.motion.moves) {
        if (move.kind == Move::Kind::Rotate && move.degrees == 0.0)
            throw UsageError{"each --rotate needs its --degrees"};
    }
    prepareKernel();
    Session session;
    const realmodel::LoadedModel loaded = realmodel::loadModelIntoSession(session, operandOf(invocation));
    const std::vector<AssemblyComponent> components = listComponentPaths(*loaded.models.top);
    std::ostringstream motion;
    if (const std::string problem = writeMotionFile(components, invocation.motion, motion); !problem.empty())
        throw HostError(problem + " (see vantrel-host components " + operandOf(invocation) + ")");
    std::ofstream file(*invocation.output, std::ios::binary);
    file << motion.str();
    file.close();
    if (!file) throw HostError("can't write the motion file \"" + invocation.output->string() + "\"");
    std::cout << "recorded " << invocation.motion.frames << " frames of " << components.size() << " components, "
              << invocation.motion.moves.size() << " moves, to " << invocation.output->string() << "\n";
    return 0;
}

}  // namespace host::cli
