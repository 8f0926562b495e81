#include "export/Appearances.h"

#include <cstring>

#include "export/AssemblyAppearance.h"
#include "toolkit/btk/TextConversion.h"

namespace {

// A record that counts as the item's own appearance, with the item's texture
// record when the host has one.
struct AppearanceSource {
    AppearanceProps props{};
    TextureProps texture{};
    bool hasTexture = false;
};

bool readOwnAppearance(ProModelitem* item, AppearanceSource& source) {
    if (ProSurfaceAppearancepropsGet(item, &source.props) != PRO_TK_NO_ERROR || source.props.name[0] == 0)
        return false;
    source.hasTexture = ProSurfaceTexturepropsGet(item, &source.texture) == PRO_TK_NO_ERROR;
    return true;
}

void takeColour(const AppearanceProps& props, MaterialRecord& record) {
    record.intensity = static_cast<float>(props.diffuse);
    record.red = props.color[0];
    record.green = props.color[1];
    record.blue = props.color[2];
    if (props.label[0] != 0) {
        char label[260];
        btk::narrowToBuffer(props.label, label, sizeof label);
        record.name = label;
    }
}

// The colour image of the texture record, found through the host's search
// rules; on failure the texture stays as it was.
void takeTexture(const TextureProps& texture, MaterialRecord& record) {
    std::string_view colourPath(texture.color, strnlen(texture.color, sizeof texture.color));
    ProPath name = {};
    btk::widenToBuffer(colourPath, name, sizeof name / sizeof name[0]);
    int flag = 0;
    ProPath found = {};
    if (ProTexturePathGet(name, 1, &flag, found) != PRO_TK_NO_ERROR) return;
    found[sizeof found / sizeof found[0] - 1] = 0;
    record.texture = found;
}

}  // namespace

MaterialRecord resolveAppearance(bool useAssemblyMaterials, ProGeomitem* item, const ProAsmcomppath& fullPath,
                                 const AppearanceProps* modelProps, const TextureProps* modelTexture) {
    // What the assembly shows comes first; without a visible appearance the
    // other sources follow, keeping a texture that it found.
    MaterialRecord record;
    if (useAssemblyMaterials && item && readAssemblyAppearance(*item, fullPath, record)) return record;
    // Then the surface's own record; for a facet set the item is null, so
    // the host's default is asked before the solid's record.
    AppearanceSource source;
    const AppearanceProps* props = nullptr;
    const TextureProps* texture = nullptr;
    if (readOwnAppearance(item, source)) {
        props = &source.props;
        texture = source.hasTexture ? &source.texture : nullptr;
    } else if (modelProps) {
        props = modelProps;
        texture = modelTexture;
    } else if (readOwnAppearance(nullptr, source)) {
        props = &source.props;
        texture = source.hasTexture ? &source.texture : nullptr;
    } else {
        return record;
    }
    takeColour(*props, record);
    if (texture) takeTexture(*texture, record);
    return record;
}
