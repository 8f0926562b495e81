#pragma once
// The appearance that the assembly shows for a surface of one of its
// component occurrences, read through the host's object toolkit.
#include "export/MaterialRecord.h"
#include "toolkit/ProToolkit.h"

// Fills the record from the visible appearance, if there is one, and takes
// the last texture of the visible textures whose path names an image.
// Answers whether a visible appearance was found. The toolkit's exceptions
// pass through.
bool readAssemblyAppearance(ProGeomitem& item, const ProAsmcomppath& fullPath, MaterialRecord& record);

// One visible texture: its path, found through the host's search rules when
// it names no folder, becomes the record's texture if it holds one of the
// image extensions, exactly as written.
void takeVisibleTexture(const ProWchar* path, MaterialRecord& record);
