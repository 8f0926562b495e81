#pragma once
// The headless host: loads a plug-in library, starts it through the real
// handshake with the host's function table, and stops and unloads it when
// the object goes. The plug-in then acts on the given session.
#include <filesystem>
#include <string>
#include <string_view>

#include "host/ActiveSession.h"
#include "host/Session.h"
#include "platform/DynamicLibrary.h"

namespace host {

// What the host tells the plug-in about itself at start-up.
inline constexpr const char* hostVersion = "3.0";
inline constexpr const char* hostBuild = "M010";
inline constexpr int hostLanguageCode = 6;
inline constexpr const char* hostLanguageName = "usascii";

class Host {
public:
    // Loads the library, finds its two entry points and starts it; the folder
    // of the library is the plug-in's text root. A library that can't be
    // loaded, a missing entry point or a non-zero start-up status is a
    // HostError naming the library.
    Host(Session& session, const std::filesystem::path& pluginPath);
    // Stops the plug-in, then unloads it.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    int press(std::string_view command) { return session_.press(command); }
    Session& session() { return session_; }
    const std::filesystem::path& pluginPath() const { return pluginPath_; }

private:
    using TerminateEntry = void (*)();
    void* entryPoint(const char* name) const;
    void start(void* initialize);
    std::string describe() const;

    Session& session_;
    std::filesystem::path pluginPath_;
    SessionActivation activation_;
    platform::DynamicLibrary library_;
    TerminateEntry terminate_ = nullptr;
};

}  // namespace host
