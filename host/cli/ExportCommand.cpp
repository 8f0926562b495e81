// vantrel-host export MODEL -o OUT.vnz: the main job.
#include <cstdio>
#include <iostream>
#include <optional>

#include "host/cli/KernelSetup.h"
#include "host/cli/Subcommands.h"
#include "host/realmodel/ExportJob.h"
#include "host/realmodel/ProgressLine.h"
#include "platform/Terminal.h"

namespace host::cli {

int runExport(const Invocation& invocation) {
    if (!invocation.output) throw UsageError{"export needs -o OUT.vnz"};
    realmodel::ExportRequest request;
    request.model = operandOf(invocation);
    request.output = *invocation.output;
    request.plugin = pluginOf(invocation);
    request.workdir = workdirOf(invocation);
    request.settings = invocation.settings;
    request.loading = invocation.loading;
    prepareKernel();
    realmodel::ProgressLine progress(stderr);
    std::optional<realmodel::ReadingLine> reading;
    if (platform::standardErrorIsTerminal()) {
        reading.emplace(stderr, request.model.filename().string());
        request.modelRead = [&reading] { reading->done(); };
        request.progress = [&progress](std::size_t done, std::size_t total) { progress.show(done, total); };
    }
    const realmodel::ExportReport report = realmodel::runExport(request);
    std::cout << "exported " << request.model.string() << " to " << report.output.string() << "\n"
              << describeReport(report) << "\n";
    if (report.surfaces == 0) std::cout << "the model holds meshes only: --quality has no effect on it\n";
    if (!report.placed) {
        for (const std::string& problem : report.sceneProblems) std::cerr << "vantrel-host: scene: " << problem << "\n";
        std::cerr << "vantrel-host: the scene is not sound: " << report.output.string() << " is left as it was\n";
        return 1;
    }
    return 0;
}

}  // namespace host::cli
