#pragma once
// The running renderers of this user, each announced by a small XML file of
// its own in a per-user folder: $XDG_RUNTIME_DIR/vantrel/instances, else
// /tmp/vantrel-UID/instances. The file is named after the start time and the
// process id, so that a listing in name order lists the renderers in the
// order they started:
//
//   <instance><version_major>6</version_major><process_id>42</process_id>
//   <livelink_port>47600</livelink_port></instance>
#include <filesystem>
#include <string>
#include <vector>

namespace renderer {

struct Instance {
    int version = 0;
    int processId = 0;
    int port = 0;
    std::filesystem::path file;
};

std::filesystem::path instanceFolder();

// Writes this process's file; answers it, or empty if it can't be written.
std::filesystem::path announce(int version, int port);

// The renderers announced whose processes still exist, in the order they
// started. Files of processes that are gone, and files that can't be read,
// are removed.
std::vector<Instance> runningInstances();

// The listing as the library reports it: a root element with one child each.
std::string instancesXml(const std::vector<Instance>& instances);

}  // namespace renderer
