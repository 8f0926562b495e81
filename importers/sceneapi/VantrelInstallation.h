#pragma once
// Where the renderer is installed and how it is reached, as its registry
// values tell: the folders of its binaries, its executable, the range of its
// link's ports, the folder for the log. A value that can't be read counts as
// missing.
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Registry.h"

namespace nvx::installation {

// The folder of the renderer last active for this user; empty if none.
std::u16string active_path();
// The binary folder of the installed version; empty if none.
std::u16string bin_folder();
// The renderer's executable for a major version from min to max; empty if
// none. With min equal to max an installed version out of range starts a
// search of the version keys from max down, which ends only at a key of the
// range.
std::u16string executable_path(int min, int max);
// Starts the executable of executable_path(min, max); false if there is none
// or it can't be started.
bool launch_application(int min, int max);
// The registered range of the link's ports. Answers 0 with both set, -1 with
// only `first` set, -2 if the first port is missing, -3 if the version's key
// is missing for this user.
int live_link_ports(std::int32_t& first, std::int32_t& last);
// The folder for the log as one hive registers it for the installed version.
std::optional<std::u16string> resource_folder(platform::Hive hive);

}  // namespace nvx::installation
