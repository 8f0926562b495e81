#include "host/cli/ModelCommands.h"

#include <cstdio>
#include <iostream>

#include "host/cad/ExchangeControllers.h"
#include "host/cad/SampleModel.h"
#include "host/cad/XdeDocument.h"
#include "platform/Terminal.h"

namespace host::cli {

namespace {

// Rewrites one line of the terminal, at most a hundred times a run.
void showProgress(std::size_t done, std::size_t total) {
    if (total == 0) return;
    const std::size_t step = total / 100 + 1;
    if (done % step != 0 && done != total) return;
    std::fprintf(stderr, "\rmeshing surfaces: %zu of %zu", done, total);
    if (done == total) std::fputc('\n', stderr);
    std::fflush(stderr);
}

void prepareKernel() {
    host::cad::quietKernelMessages();
    host::cad::initExchangeControllers();
}

}  // namespace

int exportModel(host::realmodel::ExportRequest request) {
    prepareKernel();
    if (platform::standardErrorIsTerminal()) request.progress = showProgress;
    const host::realmodel::ExportReport report = host::realmodel::runExport(request);
    std::cout << "exported " << request.model.string() << " to " << report.output.string() << "\n"
              << describeReport(report) << "\n";
    if (!report.sceneProblems.empty()) {
        for (const std::string& problem : report.sceneProblems) std::cerr << "vantrel-host: scene: " << problem << "\n";
        return 1;
    }
    return 0;
}

int writeSample(const std::filesystem::path& output) {
    prepareKernel();
    const host::cad::SampleFiles files = host::cad::writeSampleStep(output.string());
    std::cout << "wrote " << files.stepPath << " and " << files.meshPath << "\n";
    return 0;
}

}  // namespace host::cli
