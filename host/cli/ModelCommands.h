#pragma once
// The sub-commands of vantrel-host that work on model files: "export", the
// main job, and "sample", which writes the bundled sample model.
#include <filesystem>

#include "host/realmodel/ExportJob.h"

namespace host::cli {

// Exports, shows progress on a terminal, and prints the summary of the
// written scene. Answers the program's exit status.
int exportModel(host::realmodel::ExportRequest request);

// Writes the sample as OUT.step (with its mesh part beside it). Answers the
// program's exit status.
int writeSample(const std::filesystem::path& output);

}  // namespace host::cli
