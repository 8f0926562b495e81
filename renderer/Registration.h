#pragma once
// The registry values through which the plug-in finds and starts the
// renderer, written into both hives (the POSIX registry keeps each hive as a
// registry-export file: the user's below $XDG_CONFIG_HOME, else ~/.config,
// the machine's below the first folder of $XDG_CONFIG_DIRS, else /etc/xdg).
// Sections of other keys in those files are kept as they were.
#include <filesystem>
#include <string>

namespace renderer {

struct RegistrationValues {
    std::filesystem::path executable;      // "BinName"; its folder is "BinFolder" and "VantrelActivePath"
    std::filesystem::path resourceFolder;  // "ResourceFolder"
    int firstPort = 0;                     // "LiveLinkPort"
    int lastPort = 0;                      // "LiveLinkMaxPort"
};

std::filesystem::path userHiveFile();
std::filesystem::path machineHiveFile();

// Answers why a hive could not be written, or empty.
std::string registerRenderer(const RegistrationValues& values);
std::string unregisterRenderer();

// The hive's text with the renderer's sections replaced by `sections`.
std::string withRendererSections(const std::string& hive, const std::string& sections);

// The registered range of ports; false if it isn't registered.
bool registeredPorts(int& first, int& last);

}  // namespace renderer
