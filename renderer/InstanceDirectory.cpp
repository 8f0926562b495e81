#include "renderer/InstanceDirectory.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "platform/WholeFile.h"

namespace renderer {

namespace fs = std::filesystem;

namespace {

std::string element(const char* name, int value) {
    return std::string("<") + name + ">" + std::to_string(value) + "</" + name + ">";
}

std::string instanceXml(int version, int processId, int port) {
    return "<instance>" + element("version_major", version) + element("process_id", processId) +
           element("livelink_port", port) + "</instance>\n";
}

// The number in the element of that name in the file's text, or 0.
int numberIn(const std::string& text, const std::string& name) {
    const std::string open = "<" + name + ">";
    const std::size_t at = text.find(open);
    return at == std::string::npos ? 0 : std::atoi(text.c_str() + at + open.size());
}

bool processExists(int processId) { return processId > 0 && (kill(processId, 0) == 0 || errno == EPERM); }

}  // namespace

fs::path instanceFolder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime && *runtime) return fs::path(runtime) / "vantrel" / "instances";
    return fs::path("/tmp") / ("vantrel-" + std::to_string(getuid())) / "instances";
}

fs::path announce(int version, int port) {
    std::error_code error;
    const fs::path folder = instanceFolder();
    fs::create_directories(folder, error);
    const auto started = std::chrono::system_clock::now().time_since_epoch();
    char name[64];
    std::snprintf(name, sizeof name, "%020lld-%d.xml",
                  static_cast<long long>(std::chrono::duration_cast<std::chrono::nanoseconds>(started).count()),
                  static_cast<int>(getpid()));
    const fs::path file = folder / name;
    // Written aside and renamed, so that a listing never sees half a file.
    const fs::path partial = folder / (std::string(name) + ".part");
    {
        std::ofstream out(partial);
        out << instanceXml(version, static_cast<int>(getpid()), port);
        if (!out.flush()) return {};
    }
    fs::rename(partial, file, error);
    return error ? fs::path() : file;
}

std::vector<Instance> runningInstances() {
    std::vector<fs::path> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(instanceFolder(), error))
        if (entry.path().extension() == ".xml") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<Instance> instances;
    for (const fs::path& file : files) {
        const std::string text = platform::readWholeFile(file).value_or("");
        Instance instance{numberIn(text, "version_major"), numberIn(text, "process_id"),
                          numberIn(text, "livelink_port"), file};
        if (!processExists(instance.processId)) {
            fs::remove(file, error);
            continue;
        }
        instances.push_back(instance);
    }
    return instances;
}

std::string instancesXml(const std::vector<Instance>& instances) {
    std::string xml = "<instances>\n";
    for (const Instance& instance : instances) xml += instanceXml(instance.version, instance.processId, instance.port);
    return xml + "</instances>\n";
}

}  // namespace renderer
