#pragma once
// The plug-in linked into a test, started in this process through its entry
// point with the host's table, on `session`, in a working directory of its
// own; stopped, and the directory removed, when it goes.
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "host/ActiveSession.h"
#include "host/FunctionTable.h"
#include "host/Session.h"
#include "toolkit/Startup.h"

namespace testsupport {

class InProcessPlugin {
public:
    InProcessPlugin(host::Session& session, const std::string& folderName)
        : previous_(std::filesystem::current_path()),
          directory_(std::filesystem::temp_directory_path() / (folderName + "_" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(directory_);
        std::filesystem::create_directories(directory_);
        std::filesystem::current_path(directory_);
        activation_ = std::make_unique<host::SessionActivation>(session);
        auto table = host::hostFunctionTable();
        ProWchar errorText[256] = {};
        const std::string directory = directory_.string();
        started_ = user_initialize_plus(0, nullptr, "3.0", "M010", 0, errorText, directory.c_str(), "", "",
                                        host::applicationContext, 0, table.data(), static_cast<int>(table.size()),
                                        6) == 0;
    }
    ~InProcessPlugin() {
        user_terminate_plus();
        activation_.reset();
        std::filesystem::current_path(previous_);
        std::filesystem::remove_all(directory_);
    }
    InProcessPlugin(const InProcessPlugin&) = delete;
    InProcessPlugin& operator=(const InProcessPlugin&) = delete;

    bool started() const { return started_; }
    const std::filesystem::path& directory() const { return directory_; }

private:
    std::filesystem::path previous_, directory_;
    std::unique_ptr<host::SessionActivation> activation_;
    bool started_ = false;
};

}  // namespace testsupport
