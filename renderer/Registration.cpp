#include "renderer/Registration.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "importers/sceneapi/VantrelInstallation.h"
#include "platform/WholeFile.h"
#include "renderer/LinkProtocol.h"

namespace renderer {

namespace fs = std::filesystem;

namespace {

const char* const FILE_HEAD = "Windows Registry Editor Version 5.00\n";
const std::string VERSION_NAME = "Vantrel " + std::to_string(MAJOR_VERSION);

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

// Whether a section head names one of the renderer's keys, in either hive.
bool isRendererSection(const std::string& head) {
    const std::string key = lowered(head);
    for (const char* hive : {"[hkey_current_user\\", "[hkey_local_machine\\"}) {
        const std::string norvex = std::string(hive) + "software\\norvex";
        if (key == norvex + "]" || key == norvex + "\\" + lowered(VERSION_NAME) + "]") return true;
    }
    return false;
}

std::string quoted(const std::string& text) {
    std::string escaped = "\"";
    for (char c : text) {
        if (c == '\\' || c == '"') escaped += '\\';
        escaped += c;
    }
    return escaped + "\"";
}

std::string textValue(const char* name, const std::string& value) {
    return quoted(name) + "=" + quoted(value) + "\n";
}

std::string numberValue(const char* name, int value) {
    char text[16];
    std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(value));
    return quoted(name) + "=dword:" + text + "\n";
}

std::string sectionsFor(const char* hive, const RegistrationValues& values) {
    const std::string norvex = std::string("[") + hive + "\\SOFTWARE\\Norvex";
    const std::string folder = values.executable.parent_path().string();
    return "\n" + norvex + "]\n" + textValue("VantrelVersion", VERSION_NAME) + textValue("VantrelActivePath", folder) +
           "\n" + norvex + "\\" + VERSION_NAME + "]\n" + textValue("BinFolder", folder) +
           textValue("CurrentVersion", std::to_string(MAJOR_VERSION)) + textValue("BinName", values.executable.string()) +
           textValue("ResourceFolder", values.resourceFolder.string()) + numberValue("LiveLinkPort", values.firstPort) +
           numberValue("LiveLinkMaxPort", values.lastPort);
}

std::string rewriteHive(const fs::path& file, const std::string& sections) {
    if (file.empty()) return "no folder for the hive";
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    const std::string text = withRendererSections(platform::readWholeFile(file).value_or(""), sections);
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text;
    return out.flush() ? std::string() : "can't write " + file.string();
}

}  // namespace

fs::path userHiveFile() {
    std::string config = environment("XDG_CONFIG_HOME");
    if (config.empty()) config = environment("HOME") + "/.config";
    return fs::path(config) / "norvex" / "registry.reg";
}

fs::path machineHiveFile() {
    std::string folders = environment("XDG_CONFIG_DIRS");
    if (folders.empty()) folders = "/etc/xdg";
    return fs::path(folders.substr(0, folders.find(':'))) / "norvex" / "registry.reg";
}

std::string withRendererSections(const std::string& hive, const std::string& sections) {
    std::istringstream lines(hive);
    std::string kept = FILE_HEAD, line;
    bool keeping = true;
    while (std::getline(lines, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.rfind("Windows Registry Editor", 0) == 0) continue;
        if (!line.empty() && line.front() == '[') keeping = !isRendererSection(line);
        if (keeping) kept += line + "\n";
    }
    while (kept.size() > 1 && kept.ends_with("\n\n")) kept.pop_back();
    return kept + sections;
}

std::string registerRenderer(const RegistrationValues& values) {
    // The plug-in opens its log there before the renderer first runs.
    std::error_code error;
    fs::create_directories(values.resourceFolder, error);
    std::string failed = rewriteHive(machineHiveFile(), sectionsFor("HKEY_LOCAL_MACHINE", values));
    if (failed.empty()) failed = rewriteHive(userHiveFile(), sectionsFor("HKEY_CURRENT_USER", values));
    return failed;
}

std::string unregisterRenderer() {
    std::string failed = rewriteHive(machineHiveFile(), "");
    if (failed.empty()) failed = rewriteHive(userHiveFile(), "");
    return failed;
}

bool registeredPorts(int& first, int& last) {
    std::int32_t registeredFirst = 0, registeredLast = 0;
    if (nvx::installation::live_link_ports(registeredFirst, registeredLast) != 0) return false;
    first = registeredFirst;
    last = registeredLast;
    return true;
}

}  // namespace renderer
