// The flat operations that the object toolkit's wrappers read: the appearance
// and textures that an assembly shows for a surface of one of its component
// occurrences, the model at the end of a component path, and the look-up of a
// surface's handle.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

// The surface that an item names, with the components along the path (none
// for a null path); a status tells why there is none. The path's end model
// must own the item.
struct ShownItem {
    const Surface* surface = nullptr;
    const Model* owner = nullptr;
    std::vector<const Feature*> components;
};

ProError findShownItem(const Session& session, const ProAsmcomppath* path, const ProModelitem* item, ShownItem& found) {
    found.owner = item ? ops::modelOf(session, item->owner) : nullptr;
    if (!found.owner || item->type != PRO_ITEM_SURFACE) return PRO_TK_BAD_INPUTS;
    found.surface = found.owner->findSurface(item->id);
    if (!found.surface) return PRO_TK_E_NOT_FOUND;
    if (!path || path->componentIdCount == 0) return path && path->ownerModel != item->owner ? PRO_TK_BAD_INPUTS
                                                                                          : PRO_TK_NO_ERROR;
    const Model* top = ops::modelOf(session, path->ownerModel);
    if (!top || path->componentIdCount < 0 || path->componentIdCount > PRO_MAX_ASSEM_LEVEL) return PRO_TK_BAD_INPUTS;
    auto components = componentsAlong(*top, std::span<const int>(path->componentIds,
                                                                 static_cast<size_t>(path->componentIdCount)));
    if (!components || components->back()->component != found.owner) return PRO_TK_BAD_INPUTS;
    found.components = std::move(*components);
    return PRO_TK_NO_ERROR;
}

// The outermost occurrence along the path that shows something of its own wins.
template <typename Field>
const Feature* outermostShowing(const ShownItem& found, Field field) {
    for (const Feature* component : found.components)
        if (component->*field) return component;
    return nullptr;
}

}  // namespace

// An occurrence's own appearance first, then the surface's, then its part's;
// none of them: PRO_TK_NOT_EXIST.
ProError ops::ProMdlVisibleAppearancepropsGet(Session& session, ProAsmcomppath* path, ProModelitem* item,
                                              AppearanceProps* props) {
    ShownItem found;
    ProError status = props ? findShownItem(session, path, item, found) : PRO_TK_BAD_INPUTS;
    if (status != PRO_TK_NO_ERROR) return status;
    if (const Feature* component = outermostShowing(found, &Feature::shownAppearance)) {
        *props = *component->shownAppearance;
    } else if (found.surface->appearance) {
        *props = *found.surface->appearance;
    } else if (found.owner->appearance) {
        *props = *found.owner->appearance;
    } else {
        return PRO_TK_NOT_EXIST;
    }
    return PRO_TK_NO_ERROR;
}

ProError ops::ProMdlVisibleTexturepropsGet(Session& session, ProAsmcomppath* path, ProModelitem* item, TextureProps* props) {
    ShownItem found;
    ProError status = props ? findShownItem(session, path, item, found) : PRO_TK_BAD_INPUTS;
    if (status != PRO_TK_NO_ERROR) return status;
    if (const Feature* component = outermostShowing(found, &Feature::shownTexture)) {
        *props = *component->shownTexture;
    } else if (found.surface->texture) {
        *props = *found.surface->texture;
    } else if (found.owner->texture) {
        *props = *found.owner->texture;
    } else {
        return PRO_TK_NOT_EXIST;
    }
    return PRO_TK_NO_ERROR;
}

// An occurrence's placements as it lists them; a surface's or part's own
// texture lies as one colour image.
ProError ops::ProMdlVisibleTextureplacementpropsGet(Session& session, ProAsmcomppath* path, ProModelitem* item,
                                                   ProTextureplacement** placements) {
    ShownItem found;
    ProError status = placements ? findShownItem(session, path, item, found) : PRO_TK_BAD_INPUTS;
    if (status != PRO_TK_NO_ERROR) return status;
    std::vector<ProTextureplacement> list;
    if (const Feature* component = outermostShowing(found, &Feature::shownTexture)) {
        list = component->shownPlacements;
    } else if (found.surface->texture || found.owner->texture) {
        list.push_back(ProTextureplacement{PRO_TEXTURE_TYPE_COLOR, {1, 1}, {0, 0}, 0});
    } else {
        return PRO_TK_NOT_EXIST;
    }
    *placements = session.arrays().copyOf<ProTextureplacement>(list, "texture placements");
    return PRO_TK_NO_ERROR;
}

// The model at the end of a path: the owner itself for the empty path.
ProError ops::ProAsmcomppathMdlGet(Session& session, ProAsmcomppath* path, ProMdl* model) {
    const Model* top = path ? modelOf(session, path->ownerModel) : nullptr;
    if (!top || !model || path->componentIdCount < 0 || path->componentIdCount > PRO_MAX_ASSEM_LEVEL)
        return PRO_TK_BAD_INPUTS;
    if (path->componentIdCount == 0) {
        *model = path->ownerModel;
        return PRO_TK_NO_ERROR;
    }
    auto components = componentsAlong(*top, std::span<const int>(path->componentIds,
                                                                 static_cast<size_t>(path->componentIdCount)));
    if (!components) return PRO_TK_E_NOT_FOUND;
    if (!components->back()->component) return PRO_TK_E_NOT_FOUND;
    *model = handleOf<ProMdl>(*components->back()->component);
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSurfaceInit(Session& session, ProSolid owner, int id, ProSurface* surface) {
    const Model* model = modelOf(session, owner);
    if (!model || !surface) return PRO_TK_BAD_INPUTS;
    const Surface* found = model->findSurface(id);
    if (!found) return PRO_TK_E_NOT_FOUND;
    *surface = handleOf<ProSurface>(*found);
    return PRO_TK_NO_ERROR;
}

}  // namespace host
