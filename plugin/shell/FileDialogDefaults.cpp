#include "plugin/shell/FileDialogDefaults.h"

#include "platform/Files.h"

FileDialogDefaults fileDialogDefaults(const std::u16string& lastPath) {
    constexpr size_t directoryCapacity = 260, nameCapacity = 40;
    FileDialogDefaults defaults;
    if (lastPath.empty()) return defaults;
    if (lastPath.size() < directoryCapacity) defaults.directory = lastPath;
    size_t separator = defaults.directory.rfind(platform::pathSeparator);
    if (separator == std::u16string::npos) return defaults;
    std::u16string name = defaults.directory.substr(separator + 1);
    if (name.size() < nameCapacity) defaults.name = name;
    defaults.directory.resize(separator);
    return defaults;
}
