#pragma once
// The scenes that the renderer holds, one for each model, and how a stream
// that names a held model is merged into it.
#include <map>
#include <string>

#include "scenereader/SceneDocument.h"

namespace renderer {

// The name of the stream's model: the name of its first top-level group;
// empty if it has none.
std::string modelNameOf(const scenereader::Block& root);

// Merges a stream into the held scene of the same model. Top-level items
// other than groups are taken from the stream. A group sent again is matched
// by its name and its place among the siblings of that name: its statements
// (flags, transform) are the stream's where it sends them and the held ones
// where it doesn't, its objects the stream's if it carries any, else the ones
// it had; its groups are merged in turn, and groups that
// were not sent again stay.
void mergeScene(scenereader::Block& held, const scenereader::Block& sent);

}  // namespace renderer
