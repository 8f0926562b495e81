#pragma once
// The body of the command "vantrel-scene-check FILE...": reads each scene,
// checks it and prints its summary.
#include <ostream>
#include <string>
#include <vector>

namespace scenereader {

// Prints "FILE: summary" to `out` for each file that reads, with "--tree"
// the tree below it; parse errors and failed checks go to `err`, one line
// each, naming the file. Answers 0 if all files read and pass (and for
// "--help", which prints the usage), 1 if any doesn't, 2 without files or
// with an unknown option.
int runSceneCheck(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace scenereader
