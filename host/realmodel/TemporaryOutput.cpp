#include "host/realmodel/TemporaryOutput.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <system_error>

#include "host/realmodel/ExportJob.h"

namespace host::realmodel {
namespace {

// The temporary file that a signal handler removes; empty when there is none.
// Written before the handlers are installed, read only by them.
char pendingPath[4096] = {};
using Handler = void (*)(int);
Handler previousInterrupt = SIG_DFL;
Handler previousTermination = SIG_DFL;

extern "C" void removePendingAndEnd(int signal) {
    if (pendingPath[0] != '\0') std::remove(pendingPath);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void watchSignals(const std::filesystem::path& temporary) {
    const std::string text = temporary.string();
    if (text.size() >= sizeof pendingPath) return;
    std::memcpy(pendingPath, text.c_str(), text.size() + 1);
    previousInterrupt = std::signal(SIGINT, removePendingAndEnd);
    previousTermination = std::signal(SIGTERM, removePendingAndEnd);
}

void stopWatchingSignals() {
    if (pendingPath[0] == '\0') return;
    std::signal(SIGINT, previousInterrupt == SIG_ERR ? SIG_DFL : previousInterrupt);
    std::signal(SIGTERM, previousTermination == SIG_ERR ? SIG_DFL : previousTermination);
    pendingPath[0] = '\0';
}

// ".NAME.vnz.part-123456.vnz" beside NAME.vnz: hidden, and still a scene file by its extension.
std::filesystem::path temporaryBeside(const std::filesystem::path& target) {
    std::random_device device;
    const std::string tag = std::to_string(device() % 1000000);
    return target.parent_path() / ("." + target.filename().string() + ".part-" + tag + target.extension().string());
}

}  // namespace

TemporaryOutput::TemporaryOutput(std::filesystem::path target) : target_(std::move(target)) {
    std::error_code error;
    if (std::filesystem::is_directory(target_, error)) {
        throw ExportError("can't write the scene \"" + target_.string() + "\": it is a directory");
    }
    for (int attempt = 0; attempt < 8 && temporary_.empty(); ++attempt) {
        std::filesystem::path candidate = temporaryBeside(target_);
        if (std::filesystem::exists(candidate, error)) continue;
        // Watched before it exists, so that no interrupt leaves it behind.
        watchSignals(candidate);
        std::ofstream created(candidate, std::ios::binary);
        if (!created) {
            const int reason = errno;
            stopWatchingSignals();
            throw ExportError("can't write the scene \"" + target_.string() + "\": " + std::strerror(reason));
        }
        temporary_ = std::move(candidate);
    }
    if (temporary_.empty()) throw ExportError("can't write the scene \"" + target_.string() + "\"");
}

TemporaryOutput::~TemporaryOutput() {
    stopWatchingSignals();
    std::error_code ignored;
    if (!placed_) std::filesystem::remove(temporary_, ignored);
}

void TemporaryOutput::putInPlace() {
    std::error_code error;
    std::filesystem::rename(temporary_, target_, error);
    if (error) throw ExportError("can't put the scene in place as \"" + target_.string() + "\": " + error.message());
    placed_ = true;
    stopWatchingSignals();
}

}  // namespace host::realmodel
