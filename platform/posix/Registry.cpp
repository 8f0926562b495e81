// POSIX implementation: this file may contain only POSIX code.
// Each hive is a registry-export file: the current user's in
// $XDG_CONFIG_HOME/norvex/registry.reg (default ~/.config), the machine's in
// the first directory of $XDG_CONFIG_DIRS that has one (default /etc/xdg).
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "platform/RegistryNative.h"
#include "platform/WholeFile.h"
#include "platform/posix/RegistryFile.h"

namespace platform::native {

namespace {

namespace fs = std::filesystem;

const fs::path HIVE_FILE = fs::path("norvex") / "registry.reg";

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

fs::path currentUserFile() {
    std::string config = environment("XDG_CONFIG_HOME");
    if (config.empty()) config = environment("HOME") + "/.config";
    return fs::path(config) / HIVE_FILE;
}

fs::path localMachineFile() {
    std::string directories = environment("XDG_CONFIG_DIRS");
    if (directories.empty()) directories = "/etc/xdg";
    std::istringstream list(directories);
    std::string directory;
    while (std::getline(list, directory, ':')) {
        if (directory.empty()) continue;
        fs::path file = fs::path(directory) / HIVE_FILE;
        std::error_code ignored;
        if (fs::is_regular_file(file, ignored)) return file;
    }
    return {};
}

RegistryKeys readHive(Hive hive) {
    fs::path file = hive == Hive::CurrentUser ? currentUserFile() : localMachineFile();
    if (file.empty()) return {};
    const std::optional<std::string> bytes = readWholeFile(file);
    if (!bytes) return {};
    return parseRegistryExport(decodeRegistryFile(*bytes));
}

// A key exists if it has a section of its own or a section below it, as a
// parent key exists in the registry even when it holds no values.
const RegistryValues* findKey(const RegistryKeys& keys, const std::u16string& path) {
    auto exact = keys.find(path);
    if (exact != keys.end()) return &exact->second;
    const std::u16string parent = path + u"\\";
    auto below = keys.lower_bound(parent);
    static const RegistryValues NO_VALUES;
    if (below != keys.end() && below->first.starts_with(parent)) return &NO_VALUES;
    return nullptr;
}

const RegistryValue* findValue(void* key, const std::u16string& name) {
    const auto& values = *static_cast<const RegistryValues*>(key);
    auto found = values.find(lowerAscii(name));
    return found == values.end() ? nullptr : &found->second;
}

}  // namespace

void* openKey(Hive hive, const std::u16string& path) {
    std::u16string full = hive == Hive::CurrentUser ? u"hkey_current_user\\" : u"hkey_local_machine\\";
    full += lowerAscii(path);
    RegistryKeys keys = readHive(hive);
    const RegistryValues* values = findKey(keys, full);
    // The handle owns a copy of the key's values, read at the moment of opening.
    return values ? new RegistryValues(*values) : nullptr;
}

void closeKey(void* key) { delete static_cast<RegistryValues*>(key); }

std::optional<std::u16string> readText(void* key, const std::u16string& name, std::size_t capacity) {
    const RegistryValue* value = findValue(key, name);
    if (!value || value->isNumber) return std::nullopt;
    if ((value->text.size() + 1) * sizeof(char16_t) > capacity) return std::nullopt;
    return value->text;
}

std::optional<std::uint32_t> readNumber(void* key, const std::u16string& name) {
    const RegistryValue* value = findValue(key, name);
    if (!value || !value->isNumber) return std::nullopt;
    return value->number;
}

}  // namespace platform::native
