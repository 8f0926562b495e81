#pragma once
// A session of a user written as a small text script, one command a line:
//
//   open MODEL                 opens a model file; it becomes the current model
//   press COMMAND NAME         presses one of the plug-in's commands
//   answer DIALOG BUTTON       the button to press when the dialog next opens
//   file PATH                  the file to choose when a file dialog next opens
//   colour PART R G B          gives every surface of the part a new colour (0 to 1)
//   pick IDS [IDS...]          the components picked when the plug-in next asks,
//                              each a path of ids from the top down: "1,4"
//   wait MS                    waits
//
// Empty lines and lines starting with "#" are passed over. Model files are
// named relative to the script's folder.
#include <filesystem>
#include <ostream>
#include <string>

#include "host/Host.h"
#include "host/Session.h"

namespace host::cli {

// A line that can't be run: what is wrong, and the line's number.
struct ScriptError {
    std::string message;
};

// Runs the script's lines in order; throws ScriptError at the first line
// that can't be run. Each press is reported on `out`.
void runSessionScript(const std::string& script, const std::filesystem::path& folder, Session& session, Host& host,
                      std::ostream& out);

}  // namespace host::cli
