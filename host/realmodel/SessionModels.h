#pragma once
// Turns a loaded CAD model into models of the host session: a part model for
// each part definition (shared by its occurrences), an assembly model of
// component features for each assembly, with layers, appearances, units,
// outline and views.
#include <cstddef>
#include <filesystem>
#include <memory>
#include <vector>

#include "host/Session.h"
#include "host/cad/CadModel.h"
#include "host/realmodel/CadSurface.h"

namespace host::realmodel {

// The layer that holds components hidden by the file itself rather than by
// one of its layers.
inline constexpr char16_t blankedLayerName[] = u"BLANKED";

struct SessionModels {
    Model* top = nullptr;
    // The surfaces that an export of the top model meshes: those of every
    // part occurrence that is not blanked.
    std::size_t surfaceOccurrences = 0;
    // Folders that hold the texture images, the model file's folder first.
    std::vector<std::filesystem::path> textureFolders;
};

// Adds the models to the session; the session's current model is left alone.
// Every surface counts its tessellation requests in `progress`.
SessionModels addToSession(Session& session, std::shared_ptr<const cad::CadModel> model,
                           std::shared_ptr<TessellationProgress> progress);

}  // namespace host::realmodel
