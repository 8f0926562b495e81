#include "export/VisibilityFilters.h"

#include "export/ComponentVisitData.h"
#include "export/SolidGeometry.h"
#include "toolkit/HostCallback.h"

namespace {

// Whether the layer item shows; the answer starts at 1, so a failing call
// lets the item pass.
int layerItemShows(int type, int id, ProMdl owner) {
    ProLayerItem item{};
    ProLayerItemInit(type, id, owner, &item);
    int shows = 1;
    ProLayeritemStatusGet(&item, nullptr, &shows);
    return shows;
}

// Every layer that holds the feature has no display status or the normal
// one. A feature on no layer passes. The host's array of layers is freed.
bool layersAreClear(const ProFeature& feature, ProMdl owner) {
    ProLayerItem item{};
    ProLayerItemInit(PRO_LAYER_ITEM_FEATURE, feature.id, owner, &item);
    ProLayer* layers = nullptr;
    ProLayeritemLayersGet(nullptr, &item, &layers);
    int count = 0;
    if (layers) ProArraySizeGet(layers, &count);
    bool clear = true;
    for (int i = 0; i < count; ++i) {
        int status = 0;
        ProLayerDisplaystatusGet(&layers[i], &status);
        clear = clear && (status == -1 || status == 1);
    }
    if (layers) ProArrayFree(reinterpret_cast<ProArray*>(&layers));
    return clear;
}

struct OwningFeature {
    ProGeomitem item{};
    ProFeature feature{};
    int status = 0;
    int type = 0;
    ProBoolean inactive = PRO_B_FALSE;
};

OwningFeature readOwningFeature(const ProGeomitem& item) {
    OwningFeature owning;
    owning.item = item;
    ProGeomitemFeatureGet(&owning.item, &owning.feature);
    ProFeatureStatusGet(&owning.feature, &owning.status);
    ProFeatureTypeGet(&owning.feature, &owning.type);
    ProGeomitemIsInactive(&owning.item, &owning.inactive);
    return owning;
}

ProError filterComponentBody(ProFeature* feature, ProAppData data) {
    auto* visitData = static_cast<ComponentVisitData*>(data);
    int type = 0;
    ProFeatureTypeGet(feature, &type);
    if (type != PRO_FEAT_TYPE_COMPONENT) return PRO_TK_CONTINUE;
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_CONTINUE;
    int status = 0;
    ProFeatureStatusGet(feature, &status);
    int shows = layerItemShows(PRO_LAYER_ITEM_FEATURE, feature->id, visitData->parentModel);
    bool clear = layersAreClear(*feature, visitData->parentModel);
    // A component hidden in the model tree is still sent: the flag is read
    // and deliberately not used.
    ProBoolean hidden = PRO_B_FALSE;
    ProModelitemIsHidden(feature, &hidden);
    return status == PRO_FEAT_ACTIVE && shows == 1 && clear ? PRO_TK_NO_ERROR : PRO_TK_CONTINUE;
}

ProError filterSurfaceBody(ProSurface surface, ProAppData data) {
    auto* geometry = static_cast<SolidGeometry*>(data);
    ProGeomitem item{};
    ProSurfaceToGeomitem(geometry->solid, surface, &item);
    OwningFeature owning = readOwningFeature(item);
    if (owning.status != PRO_FEAT_ACTIVE || owning.inactive || owning.type == PRO_FEAT_TYPE_THREAD)
        return PRO_TK_CONTINUE;
    return PRO_TK_NO_ERROR;
}

ProError filterQuiltBody(ProQuilt quilt, ProAppData data) {
    auto* geometry = static_cast<SolidGeometry*>(data);
    ProGeomitem item{};
    ProQuiltToGeomitem(geometry->solid, quilt, &item);
    OwningFeature owning = readOwningFeature(item);
    ProBoolean itemHidden = PRO_B_FALSE, featureHidden = PRO_B_FALSE;
    ProModelitemIsHidden(&owning.item, &itemHidden);
    ProModelitemIsHidden(&owning.feature, &featureHidden);
    ProBoolean backup = PRO_B_FALSE;
    ProQuiltIsBackupgeometry(quilt, &backup);
    int quiltId = 0;
    ProQuiltIdGet(quilt, &quiltId);

    if (layerItemShows(PRO_LAYER_ITEM_QUILT, quiltId, geometry->solid) == 0) return PRO_TK_CONTINUE;
    if (layerItemShows(PRO_LAYER_ITEM_FEATURE, owning.feature.id, geometry->solid) == 0) return PRO_TK_CONTINUE;
    if (owning.status != PRO_FEAT_ACTIVE || owning.inactive || itemHidden || featureHidden || backup ||
        owning.type == PRO_FEAT_TYPE_THREAD)
        return PRO_TK_CONTINUE;
    return PRO_TK_NO_ERROR;
}

}  // namespace

ProError filterComponent(ProFeature* feature, ProAppData data) {
    return toolkit::guardVisit([&] { return filterComponentBody(feature, data); }, PRO_TK_CONTINUE);
}

ProError filterSurface(ProSurface surface, ProAppData data) {
    return toolkit::guardVisit([&] { return filterSurfaceBody(surface, data); }, PRO_TK_CONTINUE);
}

ProError filterQuilt(ProQuilt quilt, ProAppData data) {
    return toolkit::guardVisit([&] { return filterQuiltBody(quilt, data); }, PRO_TK_CONTINUE);
}
