#pragma once
// Loads a CAD model file into a CadModel, choosing the reader by extension:
// STEP (.step, .stp), IGES (.iges, .igs), BREP (.brep, .brp), STL (.stl) and
// OBJ (.obj). STL and OBJ give parts of facets only; BREP and STL give one
// part; BREP, STL and OBJ carry no unit and are taken as millimetres.
#include <string>

#include "host/cad/CadModel.h"

namespace host::cad {

// Throws CadLoadError, naming the file, for a file that is missing or
// unreadable, has an unsupported extension, or holds no geometry.
CadModel loadCadModel(const std::string& path);

}  // namespace host::cad
