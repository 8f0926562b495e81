#pragma once
// The running renderers as the library's query object reports them, and the
// choice among them: the newest that shows the wanted scene, else the newest
// with an empty scene.
#include <string>
#include <vector>

class nvxLiveQuery;

namespace nvx {

struct RunningInstance {
    int version = 0;
    int process_id = 0;
    int port = 0;
};

// The renderers whose major version lies in min to max, in the order
// reported.
std::vector<RunningInstance> list_running(nvxLiveQuery& query, int min_version, int max_version);

// The chosen renderer, all zeros for none. Of several equal candidates the
// first stays. `fresh_instance` tells whether the choice is one with an empty
// scene (or none at all) rather than one showing the wanted scene.
RunningInstance pick_instance(nvxLiveQuery& query, const std::vector<RunningInstance>& instances,
                              const std::string& wanted_scene, bool& fresh_instance);

}  // namespace nvx
