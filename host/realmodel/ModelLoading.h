#pragma once
// Opens a CAD model file in the host session, as the user would before
// exporting it: the model becomes current, in assembly mode for an assembly
// and in part mode for a part, and the file's folder is searched for
// textures.
#include <memory>
#include <string>

#include "host/Session.h"
#include "host/cad/CadModel.h"
#include "host/realmodel/SessionModels.h"

namespace host::realmodel {

// The host's modes of a current model.
inline constexpr int modePart = 1;
inline constexpr int modeAssembly = 5;

struct LoadedModel {
    std::shared_ptr<const cad::CadModel> cad;
    std::shared_ptr<TessellationProgress> progress;
    SessionModels models;
};

// Throws cad::CadLoadError, naming the file, for a file that can't be read,
// has an unsupported format or holds no geometry.
LoadedModel loadModelIntoSession(Session& session, const std::string& path);

// The same for a model that is already loaded.
LoadedModel openInSession(Session& session, std::shared_ptr<const cad::CadModel> model);

}  // namespace host::realmodel
