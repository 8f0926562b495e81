#pragma once
// The command "vantrel-scene": info, check, to-gltf and preview of ".vnz"
// scene files.
#include <ostream>
#include <string>
#include <vector>

namespace scenetools {

// The arguments after the program's name. Answers the exit status: 0 done,
// 1 a file that can't be read, fails its checks or can't be written, 2 a
// usage error.
int runSceneCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace scenetools
