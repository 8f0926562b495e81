#include "host/Host.h"

#include <array>

#include "host/FunctionTable.h"
#include "host/HostError.h"
#include "platform/CodePage.h"

namespace host {
namespace {

// The shape of the plug-in's start-up entry: the host's fourteen arguments.
using InitializeEntry = int (*)(int argc, char** argv, const char* version, const char* build, int unused5,
                                ProWchar* errorText, const char* textRoot, const char* unused8,
                                const char* applicationText, int context, int unused11,
                                const HostFunctionEntry* table, int count, int language);

std::filesystem::path absolutePluginPath(const std::filesystem::path& path) {
    if (path.empty()) throw HostError("no plug-in library given");
    return std::filesystem::absolute(path).lexically_normal();
}

}  // namespace

Host::Host(Session& session, const std::filesystem::path& pluginPath)
    : session_(session), pluginPath_(absolutePluginPath(pluginPath)), activation_(session) {
    std::string reason;
    library_ = platform::DynamicLibrary::open(pluginPath_.u16string(), reason);
    if (!library_.isOpen()) throw HostError("can't load the plug-in " + describe() + ": " + reason);
    void* initialize = entryPoint("user_initialize_plus");
    terminate_ = reinterpret_cast<TerminateEntry>(entryPoint("user_terminate_plus"));
    try {
        start(initialize);
    } catch (...) {
        session_.commands().detachActions();
        throw;
    }
}

Host::~Host() {
    terminate_();
    session_.commands().detachActions();
}

std::string Host::describe() const { return "\"" + pluginPath_.string() + "\""; }

void* Host::entryPoint(const char* name) const {
    void* address = library_.symbol(name);
    if (!address) throw HostError("the plug-in " + describe() + " has no entry point \"" + name + "\"");
    return address;
}

void Host::start(void* initialize) {
    std::filesystem::path folder = pluginPath_.parent_path();
    session_.texts().setRoot(folder, hostLanguageName);
    std::string textRoot = folder.string();
    std::string libraryText = pluginPath_.string();
    std::span<const HostFunctionEntry> table = hostFunctionTable();
    std::array<ProWchar, sizeof(ProPath) / sizeof(ProWchar)> errorText{};
    int status = reinterpret_cast<InitializeEntry>(initialize)(
        0, nullptr, hostVersion, hostBuild, 0, errorText.data(), textRoot.c_str(), libraryText.c_str(),
        textRoot.c_str(), applicationContext, 0, table.data(), static_cast<int>(table.size()), hostLanguageCode);
    if (status == 0) return;
    errorText.back() = u'\0';
    std::string message = platform::wideToSystem(errorText.data());
    throw HostError("the plug-in " + describe() + " failed to start: user_initialize_plus answered " +
                    std::to_string(status) + (message.empty() ? "" : " (" + message + ")"));
}

}  // namespace host
