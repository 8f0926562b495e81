// Features and components: the feature visit, a feature's type and status,
// a component's model, component paths and their transforms, and the
// feature that owns a geometry item.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"
#include "host/ops/Visits.h"

namespace host {
namespace {

// The feature that a feature item names; a status tells why there is none.
const Feature* featureOf(const Session& session, const ProFeature* item, ProError& status) {
    const Model* owner = item ? ops::modelOf(session, item->owner) : nullptr;
    if (!owner || item->type != PRO_ITEM_FEATURE) {
        status = PRO_TK_BAD_INPUTS;
        return nullptr;
    }
    const Feature* feature = owner->findFeature(item->id);
    status = feature ? PRO_TK_NO_ERROR : PRO_TK_E_NOT_FOUND;
    return feature;
}

ProError answerFeatureField(Session& session, const ProFeature* item, int* answer, int Feature::*field) {
    ProError status = PRO_TK_BAD_INPUTS;
    const Feature* feature = answer ? featureOf(session, item, status) : nullptr;
    if (!feature) return status;
    *answer = feature->*field;
    return PRO_TK_NO_ERROR;
}

bool validCount(int count) { return count >= 0 && count <= PRO_MAX_ASSEM_LEVEL; }

}  // namespace

// The solid's own features in order; the plug-in descends into components itself.
ProError ops::ProSolidFeatVisit(Session& session, ProSolid solid, ProFeatureVisitAction action,
                                ProFeatureFilterAction filter, ProAppData data) {
    auto itemOf = [](const Feature& feature, ProSolid owner) { return ProFeature{PRO_ITEM_FEATURE, feature.id, owner}; };
    return visitOfSolid(session, solid, &Model::features, itemOf, filter, action, data);
}

ProError ops::ProFeatureTypeGet(Session& session, ProFeature* item, int* type) {
    return answerFeatureField(session, item, type, &Feature::type);
}

ProError ops::ProFeatureStatusGet(Session& session, ProFeature* item, int* status) {
    return answerFeatureField(session, item, status, &Feature::status);
}

// Not found when the component's model isn't loaded.
ProError ops::ProAsmcompMdlGet(Session& session, ProFeature* component, ProMdl* model) {
    ProError status = PRO_TK_BAD_INPUTS;
    const Feature* feature = model ? featureOf(session, component, status) : nullptr;
    if (!feature) return status;
    if (feature->type != PRO_FEAT_TYPE_COMPONENT) return PRO_TK_BAD_INPUTS;
    if (!feature->component) return PRO_TK_E_NOT_FOUND;
    *model = handleOf<ProMdl>(*feature->component);
    return PRO_TK_NO_ERROR;
}

// The ids must lead from the owner through its component features; the
// model of the last one need not be loaded.
ProError ops::ProAsmcomppathInit(Session& session, ProSolid owner, const int* componentIds, int componentIdCount,
                                 ProAsmcomppath* path) {
    const Model* top = modelOf(session, owner);
    if (!top || !path || !validCount(componentIdCount) || (componentIdCount > 0 && !componentIds)) {
        return PRO_TK_BAD_INPUTS;
    }
    std::span<const int> ids(componentIds, static_cast<size_t>(componentIdCount));
    if (!componentsAlong(*top, ids)) return PRO_TK_E_NOT_FOUND;
    *path = ProAsmcomppath{};
    path->ownerModel = owner;
    std::copy(ids.begin(), ids.end(), path->componentIds);
    path->componentIdCount = componentIdCount;
    return PRO_TK_NO_ERROR;
}

// Bottom-up (any non-zero flag): component to top, that is the placements
// from the last component to the first, multiplied in that order as row
// vectors. Top-down (0): its inverse. The empty path gives the identity.
ProError ops::ProAsmcomppathTrfGet(Session& session, ProAsmcomppath* path, ProBoolean bottomUp, ProMatrix transform) {
    const Model* top = path ? modelOf(session, path->ownerModel) : nullptr;
    if (!top || !transform || !validCount(path->componentIdCount)) return PRO_TK_BAD_INPUTS;
    auto components =
        componentsAlong(*top, std::span<const int>(path->componentIds, static_cast<size_t>(path->componentIdCount)));
    if (!components) return PRO_TK_E_NOT_FOUND;
    Matrix toTop = identityMatrix();
    for (const Feature* component : *components) toTop = multiply(component->placement, toTop);
    if (!bottomUp) {
        std::optional<Matrix> inverse = invertAffine(toTop);
        if (!inverse) return PRO_TK_GENERAL_ERROR;
        toTop = *inverse;
    }
    for (size_t row = 0; row < 4; ++row) {
        for (size_t column = 0; column < 4; ++column) transform[row][column] = toTop[row][column];
    }
    return PRO_TK_NO_ERROR;
}

// The feature that owns a surface or a quilt.
ProError ops::ProGeomitemFeatureGet(Session& session, ProGeomitem* item, ProFeature* feature) {
    const Model* owner = item ? modelOf(session, item->owner) : nullptr;
    if (!owner || !feature) return PRO_TK_BAD_INPUTS;
    std::optional<int> featureId;
    if (item->type == PRO_ITEM_SURFACE) {
        if (const Surface* surface = owner->findSurface(item->id)) featureId = surface->featureId;
    } else if (item->type == PRO_ITEM_QUILT) {
        if (const Quilt* quilt = owner->findQuilt(item->id)) featureId = quilt->featureId;
    } else {
        return PRO_TK_BAD_INPUTS;
    }
    if (!featureId || !owner->findFeature(*featureId)) return PRO_TK_E_NOT_FOUND;
    *feature = ProFeature{PRO_ITEM_FEATURE, *featureId, item->owner};
    return PRO_TK_NO_ERROR;
}

}  // namespace host
