#pragma once
// The host's appearance and texture records for what a CAD file says a shape
// looks like.
#include <filesystem>
#include <optional>

#include "host/cad/CadModel.h"
#include "toolkit/ProToolkit.h"

namespace host::realmodel {

// Name and Label are the material's name, or for a bare colour the name of
// the nearest named colour, so that the record always counts as the item's
// own.
AppearanceProps appearancePropsOf(const cad::CadAppearance& appearance);

// The colour image by its file name, for the host's texture search to find;
// none when the appearance has no image.
std::optional<TextureProps> texturePropsOf(const cad::CadAppearance& appearance);

}  // namespace host::realmodel
