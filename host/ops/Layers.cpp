// Layers and the flags that hide items: layer items and their status, the
// layers that hold an item, a layer's display status, and the hidden,
// inactive and backup flags.
#include <algorithm>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

bool holds(const Layer& layer, const ProLayerItem& item) {
    return std::any_of(layer.items.begin(), layer.items.end(),
                       [&](const LayerItemRef& held) { return held.type == item.type && held.id == item.id; });
}

// Blanked and hidden layers hide what they hold; the other statuses show it.
bool hides(const Layer& layer) { return layer.displayStatus == PRO_LAYER_BLANK || layer.displayStatus == PRO_LAYER_HIDDEN; }

ProBoolean flag(bool value) { return value ? PRO_B_TRUE : PRO_B_FALSE; }

// Which flag an operation reads of each kind of item; null where that kind
// of item has none.
struct FlagSource {
    bool Feature::*ofFeature;
    bool Surface::*ofSurface;
    bool Quilt::*ofQuilt;
};

template <typename Item>
ProError answerFlagOf(const Item* found, bool Item::*field, ProBoolean* answer) {
    if (!found) return PRO_TK_E_NOT_FOUND;
    *answer = flag(found->*field);
    return PRO_TK_NO_ERROR;
}

ProError answerFlag(const Session& session, const ProModelitem* item, ProBoolean* answer, const FlagSource& source) {
    const Model* owner = item ? ops::modelOf(session, item->owner) : nullptr;
    if (!owner || !answer) return PRO_TK_BAD_INPUTS;
    if (item->type == PRO_ITEM_FEATURE && source.ofFeature) {
        return answerFlagOf(owner->findFeature(item->id), source.ofFeature, answer);
    }
    if (item->type == PRO_ITEM_SURFACE && source.ofSurface) {
        return answerFlagOf(owner->findSurface(item->id), source.ofSurface, answer);
    }
    if (item->type == PRO_ITEM_QUILT && source.ofQuilt) {
        return answerFlagOf(owner->findQuilt(item->id), source.ofQuilt, answer);
    }
    return PRO_TK_BAD_INPUTS;
}

}  // namespace

ProError ops::ProLayerItemInit(Session& session, int type, int id, ProMdl owner, ProLayerItem* item) {
    if (!modelOf(session, owner) || !item) return PRO_TK_BAD_INPUTS;
    *item = ProLayerItem{type, id, owner};
    return PRO_TK_NO_ERROR;
}

// Whether the item shows: 0 when a layer that holds it is blanked or hidden,
// else 1. Given a layer, only that layer counts.
ProError ops::ProLayeritemStatusGet(Session& session, ProLayerItem* item, ProLayer* layer, int* status) {
    const Model* owner = item ? modelOf(session, item->owner) : nullptr;
    if (!owner || !status) return PRO_TK_BAD_INPUTS;
    bool hidden = false;
    if (layer) {
        const Model* layerOwner = modelOf(session, layer->owner);
        const Layer* only = layerOwner ? layerOwner->findLayer(layer->id) : nullptr;
        if (!only) return PRO_TK_E_NOT_FOUND;
        hidden = holds(*only, *item) && hides(*only);
    } else {
        hidden = std::any_of(owner->layers.begin(), owner->layers.end(),
                             [&](const Layer& candidate) { return holds(candidate, *item) && hides(candidate); });
    }
    *status = hidden ? 0 : 1;
    return PRO_TK_NO_ERROR;
}

// The layers of the item's owner that hold it, as a host array (empty for
// none). The path plays no part: the headless host has no layers of an
// assembly that reach into its components.
ProError ops::ProLayeritemLayersGet(Session& session, ProAsmcomppath*, ProLayerItem* item, ProLayer** layers) {
    const Model* owner = item ? modelOf(session, item->owner) : nullptr;
    if (!owner || !layers) return PRO_TK_BAD_INPUTS;
    std::vector<ProLayer> holding;
    for (const Layer& layer : owner->layers) {
        if (holds(layer, *item)) holding.push_back(ProLayer{PRO_ITEM_LAYER, layer.id, item->owner});
    }
    *layers = session.arrays().copyOf<ProLayer>(holding, "layers");
    return PRO_TK_NO_ERROR;
}

ProError ops::ProLayerDisplaystatusGet(Session& session, ProLayer* layer, int* status) {
    const Model* owner = layer ? modelOf(session, layer->owner) : nullptr;
    if (!owner || !status || layer->type != PRO_ITEM_LAYER) return PRO_TK_BAD_INPUTS;
    const Layer* found = owner->findLayer(layer->id);
    if (!found) return PRO_TK_E_NOT_FOUND;
    *status = found->displayStatus;
    return PRO_TK_NO_ERROR;
}

// Features and quilts can be hidden in the model tree.
ProError ops::ProModelitemIsHidden(Session& session, ProModelitem* item, ProBoolean* hidden) {
    return answerFlag(session, item, hidden, {&Feature::hidden, nullptr, &Quilt::hidden});
}

// Surfaces and quilts can be inactive.
ProError ops::ProGeomitemIsInactive(Session& session, ProGeomitem* item, ProBoolean* inactive) {
    return answerFlag(session, item, inactive, {nullptr, &Surface::inactive, &Quilt::inactive});
}

ProError ops::ProQuiltIsBackupgeometry(Session&, ProQuilt quilt, ProBoolean* backup) {
    if (!quilt || !backup) return PRO_TK_BAD_INPUTS;
    *backup = flag(objectOf<Quilt>(quilt)->backup);
    return PRO_TK_NO_ERROR;
}

}  // namespace host
