// Feeds arbitrary bytes to the plug-in's settings file: the bytes are the file
// in a folder of the fuzzer's own, and the plug-in loads them over its
// defaults, then writes and loads them again.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "plugin/core/SettingsFile.h"
#include "plugin/core/VantrelPlugin.h"

namespace {

// The working directory of the run: a folder of its own under the temporary folder.
bool enterScratchFolder() {
    char name[] = "/tmp/vantrel-settings-fuzz-XXXXXX";
    return mkdtemp(name) != nullptr && chdir(name) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool ready = enterScratchFolder();
    if (!ready) std::abort();
    if (FILE* file = std::fopen(settingsFileName, "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
    VantrelPlugin plugin;
    loadSettings(plugin);
    saveSettings(plugin);
    VantrelPlugin again;
    loadSettings(again);
    return 0;
}
