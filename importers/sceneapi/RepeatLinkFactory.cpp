#include "importers/sceneapi/RepeatLinkFactory.h"

#include <utility>

namespace nvx {

namespace {

constexpr const char* CONNECT_FAILED = "Failed to connect. ";
constexpr const char* NO_LIVE_LINK = "the live link to the renderer is not available in this build";

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
    if (!live_scene) error = std::string(CONNECT_FAILED) + NO_LIVE_LINK;
    return live_scene;
}

void RepeatLinkFactory::begin(nvxSceneapi_oo&) {}

void RepeatLinkFactory::close() {
    if (live_scene) live_scene->disconnect();
    live_scene = nullptr;
}

}  // namespace nvx
