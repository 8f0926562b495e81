#include "importers/sceneapi/nvxLiveLoader.h"

#include <string>

#include "importers/sceneapi/SceneApiLog.h"
#include "importers/sceneapi/VantrelInstallation.h"
#include "platform/DynamicLibrary.h"
#include "platform/Files.h"

namespace {

const std::u16string LIBRARY_BASE_NAME = u"nvxvantrellive6";
// The 32-bit name comes first everywhere: a process of the other width fails
// to load that file, and the order costs one failed call.
const std::u16string LIBRARY_SUFFIXES[] = {u"_32.so", u"_64.so"};

std::u16string joined(const std::u16string& head, const std::u16string& tail) {
    return head + platform::pathSeparator + tail;
}

// Wide text as bytes for the log: each character's upper byte is dropped.
std::string low_bytes(const std::u16string& text) {
    std::string bytes;
    for (char16_t c : text) bytes += static_cast<char>(c & 0xFF);
    return bytes;
}

struct nvxVantrelLiveLoader {
    nvxLiveRoot* live_root = nullptr;
    platform::DynamicLibrary library;

    bool initialize();
    bool load_first_of(const std::u16string& absolute_stem, const std::u16string& relative_stem);
};

nvxVantrelLiveLoader* vantrel_live_loader = nullptr;

bool nvxVantrelLiveLoader::load_first_of(const std::u16string& absolute_stem, const std::u16string& relative_stem) {
    for (const std::u16string* stem : {&absolute_stem, &relative_stem})
        for (const std::u16string& suffix : LIBRARY_SUFFIXES) {
            std::string reason;
            library = platform::DynamicLibrary::open(*stem + suffix, reason);
            if (library.isOpen()) return true;
        }
    return false;
}

bool nvxVantrelLiveLoader::initialize() {
    if (live_root) return false;
    FILE_LOG(logDEBUG4) << "nvxVantrelLiveLoader :: initialize()";
    const std::u16string relative_stem = joined(u".", LIBRARY_BASE_NAME);
    std::u16string folder = nvx::installation::active_path();
    if (folder.empty()) folder = nvx::installation::bin_folder();
    FILE_LOG(logDEBUG4) << low_bytes(folder);
    const std::u16string absolute_stem = joined(folder, relative_stem);
    if (!library.isOpen()) load_first_of(absolute_stem, relative_stem);
    FILE_LOG(logDEBUG4) << "initialize shared handle: " << library.handle();
    if (!library.isOpen()) {
        FILE_LOG(logWARNING) << "NO shared handle";
        return false;
    }
    if (auto initialize_live = reinterpret_cast<nvxLiveInitialize>(library.symbol(LIVE_INITIALIZE_EXPORT)))
        live_root = initialize_live();
    FILE_LOG(logDEBUG4) << "Vantrel live: " << static_cast<const void*>(live_root);
    return live_root != nullptr;
}

void release_loader() {
    delete vantrel_live_loader->live_root;
    vantrel_live_loader->library.close();
    delete vantrel_live_loader;
    vantrel_live_loader = nullptr;
}

// The loader, made and initialised at the first call; null if that failed.
nvxVantrelLiveLoader* loader() {
    if (vantrel_live_loader) return vantrel_live_loader;
    vantrel_live_loader = new nvxVantrelLiveLoader;
    if (!vantrel_live_loader->initialize()) release_loader();
    return vantrel_live_loader;
}

}  // namespace

nvxScene_api* nvx_get_scene_api() {
    nvxVantrelLiveLoader* live = loader();
    return live && live->live_root ? live->live_root->scene_api() : nullptr;
}

nvxLiveQuery* nvx_get_query_api() {
    nvxVantrelLiveLoader* live = loader();
    FILE_LOG(logDEBUG4) << "nvx_get_query_api -> vantrel_live_loader: " << static_cast<const void*>(live);
    return live && live->live_root ? live->live_root->query_api() : nullptr;
}

void nvx_release_live() {
    if (vantrel_live_loader) release_loader();
}
