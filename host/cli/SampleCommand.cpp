// vantrel-host sample OUT.step: writes the bundled sample model.
#include <iostream>

#include "host/cad/SampleModel.h"
#include "host/cli/KernelSetup.h"
#include "host/cli/Subcommands.h"

namespace host::cli {

int runSample(const Invocation& invocation) {
    prepareKernel();
    const host::cad::SampleFiles files = host::cad::writeSampleStep(operandOf(invocation));
    std::cout << "wrote " << files.stepPath << " and " << files.meshPath << "\n";
    return 0;
}

}  // namespace host::cli
