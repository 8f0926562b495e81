#pragma once
// Reads exchange files that carry structure, names and appearances (STEP,
// IGES, OBJ) into an XDE document, keeping lengths in the file's own unit.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/cad/StepCodePage.h"
#include "host/cad/TessellatedStep.h"
#include "host/cad/XdeDocument.h"

namespace host::cad {

struct ReadResult {
    std::string unitName;
    std::vector<std::string> warnings;
    std::optional<StepCodePage> codePage;  // of a STEP file's names
    TessellatedItems tessellated;  // a STEP file's mesh-only items
};

// Each throws CadLoadError, naming the file, when the file can't be read.
// A STEP file's names are decoded from `codePage`, or from the code page
// detected in the file when none is given.
ReadResult readStep(const std::filesystem::path& path, XdeDocument& document,
                    const std::optional<StepCodePage>& codePage);
ReadResult readIges(const std::filesystem::path& path, XdeDocument& document);
ReadResult readObj(const std::filesystem::path& path, XdeDocument& document);

}  // namespace host::cad
