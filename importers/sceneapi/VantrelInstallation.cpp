#include "importers/sceneapi/VantrelInstallation.h"

#include <cstdlib>
#include <string>

#include "platform/CodePage.h"
#include "platform/Process.h"

namespace nvx::installation {

namespace {

using platform::Hive;
using platform::RegistryKey;

const std::u16string NORVEX_KEY = u"SOFTWARE\\Norvex";
// Buffer sizes of the values, in bytes.
constexpr std::size_t VERSION_NAME_SIZE = 64;
constexpr std::size_t PORT_VERSION_NAME_SIZE = 512;
constexpr std::size_t CURRENT_VERSION_SIZE = 64;
constexpr std::size_t ACTIVE_PATH_SIZE = 512;
constexpr std::size_t FOLDER_SIZE = 520;
constexpr std::size_t PORT_TEXT_SIZE = 512;

std::u16string version_key(const std::u16string& version_name) { return NORVEX_KEY + u"\\" + version_name; }

// The key of the installed version in a hive, named by its "VantrelVersion".
RegistryKey open_version_key(Hive hive, std::size_t name_size) {
    auto name = RegistryKey::open(hive, NORVEX_KEY).readText(u"VantrelVersion", name_size);
    return name ? RegistryKey::open(hive, version_key(*name)) : RegistryKey();
}

// Decimal text as the registry holds it; 0 if it doesn't start with digits.
long decimal(const std::u16string& text) { return std::strtol(platform::wideToSystem(text).c_str(), nullptr, 10); }

bool in_range(long version, int min, int max) { return version >= min && version <= max; }

}  // namespace

std::u16string active_path() {
    RegistryKey norvex = RegistryKey::open(Hive::CurrentUser, NORVEX_KEY);
    return norvex.readText(u"VantrelActivePath", ACTIVE_PATH_SIZE).value_or(u"");
}

std::u16string bin_folder() {
    return open_version_key(Hive::LocalMachine, VERSION_NAME_SIZE).readText(u"BinFolder", FOLDER_SIZE).value_or(u"");
}

std::u16string executable_path(int min, int max) {
    RegistryKey norvex = RegistryKey::open(Hive::LocalMachine, NORVEX_KEY);
    if (!norvex.isOpen()) return {};
    auto name = norvex.readText(u"VantrelVersion", VERSION_NAME_SIZE);
    if (!name) return {};
    RegistryKey key = RegistryKey::open(Hive::LocalMachine, version_key(*name));
    long version = 0;
    if (auto text = key.readText(u"CurrentVersion", CURRENT_VERSION_SIZE)) version = decimal(*text);
    if (!in_range(version, min, max) && max <= min) {
        // The search goes down from max and has no lower stop: it ends at the
        // first key of the range, or once the candidate has wrapped around
        // above min. The candidate counts down in unsigned arithmetic, so the
        // wrap is defined.
        int candidate = max;
        do {
            key.close();
            key = RegistryKey::open(Hive::LocalMachine, version_key(u"Vantrel " + platform::systemToWide(
                                                                          std::to_string(candidate))));
            if (key.isOpen()) version = candidate;
            candidate = static_cast<int>(static_cast<unsigned>(candidate) - 1u);
        } while (!in_range(version, min, max) && candidate <= min);
    }
    if (!in_range(version, min, max)) return {};
    return key.readText(u"BinName", FOLDER_SIZE).value_or(u"");
}

bool launch_application(int min, int max) {
    std::u16string executable = executable_path(min, max);
    return !executable.empty() && platform::startProcess(executable);
}

int live_link_ports(std::int32_t& first, std::int32_t& last) {
    auto name = RegistryKey::open(Hive::LocalMachine, NORVEX_KEY).readText(u"VantrelVersion", PORT_VERSION_NAME_SIZE);
    RegistryKey key = RegistryKey::open(Hive::CurrentUser, version_key(name ? *name : u"Vantrel 4"));
    if (!key.isOpen()) return -3;
    if (auto number = key.readNumber(u"LiveLinkPort")) {
        first = static_cast<std::int32_t>(*number);
        auto max_port = key.readNumber(u"LiveLinkMaxPort");
        if (!max_port) return -1;
        last = static_cast<std::int32_t>(*max_port);
        return 0;
    }
    auto text = key.readText(u"LiveLinkPort", PORT_TEXT_SIZE);
    if (!text) return -2;
    first = static_cast<std::int32_t>(decimal(*text));
    auto max_text = key.readText(u"LiveLinkMaxPort", PORT_TEXT_SIZE);
    if (!max_text) return -1;
    last = static_cast<std::int32_t>(decimal(*max_text));
    return 0;
}

std::optional<std::u16string> resource_folder(Hive hive) {
    return open_version_key(hive, VERSION_NAME_SIZE).readText(u"ResourceFolder", FOLDER_SIZE);
}

}  // namespace nvx::installation
