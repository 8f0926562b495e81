#pragma once
// "vantrel-scene check [--json] FILE...": reads each scene, checks its
// meshes and animation blocks, prints the problems and a summary.
#include <ostream>
#include <string>
#include <vector>

namespace scenetools {

// Answers whether every file read and passed its checks. With `json`, one
// JSON object a file on its own line: "file", "sound", "problems" (an array
// of sentences) and "summary" with the head counts, or "error" when the
// file can't be read.
bool checkScenes(const std::vector<std::string>& files, bool json, std::ostream& out, std::ostream& err);

}  // namespace scenetools
