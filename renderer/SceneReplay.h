#pragma once
// A scene read by the project's reader, sent again through the scene
// contract: every block and statement becomes the call that writes it, so
// that the project's writer gives back the same scene, number for number.
#include <cstddef>

#include "importers/sceneapi/nvxScene_api.h"
#include "scenereader/SceneDocument.h"

namespace renderer {

// Replays the root's blocks and statements (not the comment lines around
// them). Answers how many statements had no call to write them; they are
// left out.
std::size_t replayScene(const scenereader::Block& root, nvxScene_api& scene);

}  // namespace renderer
