// Feeds arbitrary text to the choice of a running renderer, as a library's
// query object could report it: the first part of the input is the list of
// instances, the rest the scene text that every attached instance reports.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "importers/sceneapi/LiveInstances.h"
#include "importers/sceneapi/nvxLiveApi.h"

namespace {

class FuzzedQuery final : public nvxLiveQuery {
public:
    FuzzedQuery(std::string instances, std::string scene) : instances_(std::move(instances)), scene_(std::move(scene)) {}
    const char* list_instances() override { return instances_.c_str(); }
    bool attach(int process_id) override { return process_id % 3 != 0; }
    void detach() override {}
    const char* scene_text() override { return scene_.c_str(); }

private:
    std::string instances_;
    std::string scene_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    // A NUL byte, if any, divides the two texts.
    const std::size_t divide = bytes.find('\0');
    FuzzedQuery query(std::string(bytes.substr(0, divide)),
                      divide == std::string_view::npos ? std::string() : std::string(bytes.substr(divide + 1)));
    const auto instances = nvx::list_running(query, 6, 6);
    for (const nvx::RunningInstance& instance : instances) {
        if (instance.version != 6) __builtin_trap();
    }
    bool fresh = false;
    nvx::pick_instance(query, instances, "HUT", fresh);
    return 0;
}
