#pragma once
// The live road: a factory whose scene is the scene object of a running
// renderer, reached through the renderer's run-time library. It connects
// lazily, at the first call of scene(): it picks a running renderer that shows
// the wanted scene or an empty one, else launches one and waits for it, then
// connects the library's scene object to it. It never throws. A failure puts
// the reason in `error`; scene() is then null, except when the library loaded
// but no renderer could be queried or launched: the unconnected scene object
// is answered all the same.
#include <cstdint>
#include <string>

#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/LiveInstances.h"

namespace nvx {

class RepeatLinkFactory : public LightFactory {
public:
    RepeatLinkFactory() = default;
    RepeatLinkFactory(const RepeatLinkFactory&) = delete;
    RepeatLinkFactory& operator=(const RepeatLinkFactory&) = delete;
    ~RepeatLinkFactory() override;

    // The scene to look for among running renderers; empty takes any.
    void set_wanted_scene(std::string name);
    // The lowest and highest accepted major versions of the renderer.
    void set_version_range(int min, int max);
    // Whether the renderer chosen had an empty scene.
    bool is_fresh_instance() const;

    nvxScene_api* scene() override;
    void begin(nvxSceneapi_oo& layer) override;
    void close() override;

    // Polls for a launched renderer, and the milliseconds after each poll.
    std::int32_t attempts = 20;
    std::int32_t attempt_delay = 1000;
    // The renderer's scene object, not owned.
    nvxScene_api* live_scene = nullptr;
    std::int32_t min_version = 6;
    std::int32_t max_version = 20;
    // The port in use, set on success.
    std::int32_t port = -1;
    std::string wanted_scene;
    std::uint8_t fresh_instance = 0;
    // Why the last connection failed.
    std::string error;

private:
    bool connect();
    // Lists the running renderers and picks one, noting whether it is fresh.
    RunningInstance poll(nvxLiveQuery& query);
    bool connect_to(int picked_port);
};

}  // namespace nvx
