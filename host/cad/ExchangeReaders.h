#pragma once
// Reads exchange files that carry structure, names and appearances (STEP,
// IGES, OBJ) into an XDE document, keeping lengths in the file's own unit.
#include <filesystem>
#include <string>
#include <vector>

#include "host/cad/XdeDocument.h"

namespace host::cad {

struct ReadResult {
    std::string unitName;
    std::vector<std::string> warnings;
};

// Each throws CadLoadError, naming the file, when the file can't be read.
ReadResult readStep(const std::filesystem::path& path, XdeDocument& document);
ReadResult readIges(const std::filesystem::path& path, XdeDocument& document);
ReadResult readObj(const std::filesystem::path& path, XdeDocument& document);

}  // namespace host::cad
