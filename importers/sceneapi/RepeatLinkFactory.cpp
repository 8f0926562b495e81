#include "importers/sceneapi/RepeatLinkFactory.h"

#include <utility>

#include "importers/sceneapi/LiveClock.h"
#include "importers/sceneapi/LiveInstances.h"
#include "importers/sceneapi/VantrelInstallation.h"
#include "importers/sceneapi/nvxLiveLoader.h"

namespace nvx {

namespace {

constexpr const char* CONNECT_FAILED = "Failed to connect. ";
constexpr const char* NO_SCENE_API = "Could not get a scene api. Please check your Vantrel installation.\n";
constexpr const char* NO_QUERY_API = "Could not get a query api. Please check your Vantrel installation.\n";
constexpr const char* NO_LAUNCH = "Unabled to launch Vantrel. Please check your Vantrel installation.";
constexpr const char* NO_PORT =
    "Could not connect on any known port. Please check your Vantrel installation and Live Link settings.";

// Attempts of the connection to a renderer's own port, and to each port of the
// registered range.
constexpr int PICKED_PORT_ATTEMPTS = 4;
constexpr int RANGE_PORT_ATTEMPTS = 1;

}  // namespace

RepeatLinkFactory::~RepeatLinkFactory() { close(); }

void RepeatLinkFactory::set_wanted_scene(std::string name) { wanted_scene = std::move(name); }

void RepeatLinkFactory::set_version_range(int min, int max) {
    min_version = min;
    max_version = max;
}

bool RepeatLinkFactory::is_fresh_instance() const { return fresh_instance != 0; }

nvxScene_api* RepeatLinkFactory::scene() {
    error.clear();
    if (!live_scene && !connect()) error.insert(0, CONNECT_FAILED);
    return live_scene;
}

void RepeatLinkFactory::begin(nvxSceneapi_oo&) {}

void RepeatLinkFactory::close() {
    if (live_scene) live_scene->disconnect();
    nvx_release_live();
    live_scene = nullptr;
}

bool RepeatLinkFactory::connect() {
    live_scene = nvx_get_scene_api();
    if (!live_scene) {
        error = NO_SCENE_API;
        return false;
    }
    nvxLiveQuery* query = nvx_get_query_api();
    if (!query) {
        error = NO_QUERY_API;
        return false;
    }
    RunningInstance picked = poll(*query);
    if (picked.version == 0) {
        if (!installation::launch_application(min_version, max_version)) {
            error = NO_LAUNCH;
            return false;
        }
        // The launched renderer has about a second per attempt to appear; the
        // wait follows every poll, the successful one too.
        for (int attempt = 1; attempt < attempts && picked.version == 0; ++attempt) {
            picked = poll(*query);
            live_clock().sleep(attempt_delay);
        }
    }
    if (connect_to(picked.port)) return true;
    error = NO_PORT;
    live_scene = nullptr;
    return false;
}

RunningInstance RepeatLinkFactory::poll(nvxLiveQuery& query) {
    bool fresh = false;
    RunningInstance picked = pick_instance(query, list_running(query, min_version, max_version), wanted_scene, fresh);
    fresh_instance = fresh ? 1 : 0;
    return picked;
}

bool RepeatLinkFactory::connect_to(int picked_port) {
    if (picked_port >= 1) {
        if (!live_scene->connect("localhost", picked_port, PICKED_PORT_ATTEMPTS)) return false;
        port = picked_port;
        return true;
    }
    // The renderer didn't report its port: try the registered range. `port`
    // then keeps the reported one, not the port that answered.
    std::int32_t first = 0, last = 0;
    if (installation::live_link_ports(first, last) < -1) return false;
    for (std::int64_t candidate = first; candidate <= last; ++candidate) {
        if (live_scene->connect("127.0.0.1", static_cast<int>(candidate), RANGE_PORT_ATTEMPTS)) {
            port = picked_port;
            return true;
        }
    }
    return false;
}

}  // namespace nvx
