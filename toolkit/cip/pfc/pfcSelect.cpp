// The calls of the object toolkit that read the host's flat operations: the
// wrapping of host records, the selection of an item in a component path, and
// the appearance and textures that the selection shows.
#include <cstring>

#include "toolkit/cip/pfc/pfcExceptions.h"
#include "toolkit/cip/pfc/pfcObjects.h"

namespace {

constexpr int notExist = PRO_TK_NOT_EXIST;

xrchandle<pfcModel> wrapModel(ProMdl model, const char* method) {
    if (!model) xthrow(new pfcXBadArgument(method, "handle"));
    return new pfcModel_tk(model);
}

xrchandle<xobject> wrapItem(const ProModelitem& item, const char* method) {
    xrchandle<pfcModel> owner = wrapModel(item.owner, method);
    if (item.type != PRO_ITEM_SURFACE) return new pfcGeneralModelItem_tk(owner, item);
    ProSurface surface = nullptr;
    checkToolkitStatus(ProSurfaceInit(item.owner, item.id, &surface), "ProSurfaceInit", method);
    return new pfcSurface_tk(owner, item);
}

// The host path of a selection, or null when it has none.
ProAsmcomppath* hostPath(const xrchandle<pfcComponentPath>& path, ProAsmcomppath& storage) {
    if (!path) return nullptr;
    storage = path->GetPath();
    return &storage;
}

// Which path of the texture record a texture of this type shows.
xstring texturePath(wfcTextureType type, const TextureProps& textures) {
    const char* path = nullptr;
    std::size_t size = sizeof textures.color;
    switch (type) {
    case wfcBUMP_TEXTURE: path = textures.bump; break;
    case wfcCOLOR_TEXTURE: path = textures.color; break;
    case wfcDECAL_TEXTURE: path = textures.decal; break;
    case wfcNULL_TEXTURE: return xstring("");
    }
    return xstring(path, static_cast<int>(strnlen(path, size)));
}

}  // namespace

xrchandle<xobject> wfcGetObjectFromHandle(int kind, const void* handle) {
    static const char method[] = "wfcGetObjectFromHandle";
    if (!handle) xthrow(new pfcXBadArgument(method, "handle"));
    switch (kind) {
    case wfcHANDLE_MODEL: return xrchandle<pfcModel>(wrapModel(*static_cast<const ProMdl*>(handle), method));
    case wfcHANDLE_MODELITEM: return wrapItem(*static_cast<const ProModelitem*>(handle), method);
    case wfcHANDLE_COMPONENTPATH: {
        const auto& path = *static_cast<const ProAsmcomppath*>(handle);
        return xrchandle<pfcComponentPath>(new pfcComponentPath_tk(wrapModel(path.ownerModel, method), path));
    }
    default: xthrow(new pfcXBadArgument(method, "kind"));
    }
}

xrchandle<pfcSelection> pfcCreateModelItemSelection(xrchandle<pfcModelItem> item, xrchandle<pfcComponentPath> path) {
    static const char method[] = "pfcSelect::pfcSelect::CreateModelItemSelection";
    if (!item) xthrow(new pfcXBadArgument(method, "SelItem"));
    if (path) {
        ProAsmcomppath storage = path->GetPath();
        ProMdl end = nullptr;
        checkToolkitStatus(ProAsmcomppathMdlGet(&storage, &end), "ProAsmcomppathMdlGet", method);
        if (end != item->GetItem().owner) xthrow(new pfcXInvalidSelection(method));
    }
    return xrchandle<wfcWSelection>(new wfcWSelection_tk(item, path));
}

xrchandle<wfcAppearance> wfcWSelection::GetVisibleAppearance() const {
    static const char method[] = "wfcSelect::WSelection::GetVisibleAppearance";
    ProModelitem item = GetSelItem()->GetItem();
    ProAsmcomppath storage{};
    AppearanceProps props{};
    int status = ProMdlVisibleAppearancepropsGet(hostPath(GetPath(), storage), &item, &props);
    if (status == notExist) return nullptr;
    checkToolkitStatus(status, "ProMdlVisibleAppearancepropsGet", method);
    return new wfcAppearance(props);
}

xrchandle<wfcTextures> wfcWSelection::GetVisibleTextures() const {
    static const char method[] = "wfcSelect::WSelection::GetVisibleTextures";
    ProModelitem item = GetSelItem()->GetItem();
    ProAsmcomppath storage{};
    ProAsmcomppath* path = hostPath(GetPath(), storage);
    TextureProps textures{};
    int status = ProMdlVisibleTexturepropsGet(path, &item, &textures);
    if (status == notExist) return nullptr;
    checkToolkitStatus(status, "ProMdlVisibleTexturepropsGet", method);
    ProTextureplacement* placements = nullptr;
    status = ProMdlVisibleTextureplacementpropsGet(path, &item, &placements);
    if (status == notExist) return nullptr;
    checkToolkitStatus(status, "ProMdlVisibleTextureplacementpropsGet", method);
    int count = 0;
    ProArraySizeGet(placements, &count);
    xrchandle<wfcTextures> sequence = new wfcTextures();
    try {
        for (int index = 0; index < count; ++index) {
            wfcTextureType type = wfcTextureTypeFromPro(placements[index].type, method);
            sequence->append(new wfcTexture(type, texturePath(type, textures)));
        }
    } catch (...) {
        ProArrayFree(reinterpret_cast<ProArray*>(&placements));
        throw;
    }
    ProArrayFree(reinterpret_cast<ProArray*>(&placements));
    return sequence;
}
