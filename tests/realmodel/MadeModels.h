#pragma once
// Model files that more than one test of these folders writes.
#include <string>

namespace host::realmodel::testing {

// An assembly "TOP" of three cubes side by side: "SHOWN_CUBE" on the shown
// layer "SHOWN", "HIDDEN_LAYER_CUBE" on the hidden layer "CONSTRUCTION", and
// "PLAIN_CUBE" whose occurrence is hidden itself. Written as STEP in mm.
void writeCubesWithHiddenOnes(const std::string& path);

}  // namespace host::realmodel::testing
