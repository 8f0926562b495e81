#pragma once
// Loads a CAD model file into a CadModel, choosing the reader by extension:
// STEP (.step, .stp), IGES (.iges, .igs), BREP (.brep, .brp), STL (.stl) and
// OBJ (.obj). STL and OBJ give parts of facets only; BREP and STL give one
// part; BREP, STL and OBJ carry no unit and are taken as millimetres.
#include <optional>
#include <string>

#include "host/cad/CadModel.h"

namespace host::cad {

struct LoadOptions {
    // The code page of a STEP file's names; detected in the file when empty.
    std::optional<StepCodePage> stepCodePage;
};

// Throws CadLoadError, naming the file, for a file that is missing or
// unreadable, has an unsupported extension, or holds no geometry.
CadModel loadCadModel(const std::string& path, const LoadOptions& options = {});

}  // namespace host::cad
