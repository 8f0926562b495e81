#include "host/realmodel/ModelLoading.h"

#include "host/cad/CadLoader.h"

namespace host::realmodel {

LoadedModel openInSession(Session& session, std::shared_ptr<const cad::CadModel> model) {
    LoadedModel loaded;
    loaded.cad = std::move(model);
    loaded.progress = std::make_shared<TessellationProgress>();
    loaded.models = addToSession(session, loaded.cad, loaded.progress);
    loaded.progress->setTotal(loaded.models.surfaceOccurrences);
    session.setTextureSearchPath(loaded.models.textureFolders);
    session.setCurrentModel(loaded.models.top);
    session.setMode(loaded.models.top->type == PRO_MDL_ASSEMBLY ? modeAssembly : modePart);
    return loaded;
}

LoadedModel loadModelIntoSession(Session& session, const std::string& path) {
    return openInSession(session, std::make_shared<const cad::CadModel>(cad::loadCadModel(path)));
}

}  // namespace host::realmodel
