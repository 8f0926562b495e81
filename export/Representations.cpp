#include "export/Representations.h"

#include "toolkit/HostCallback.h"

namespace {

struct RepresentationCount {
    int count = 0;
    ProSimprep first{};
};

ProError countRepresentation(ProSimprep* simprep, ProError, ProAppData data) {
    return toolkit::guardVisit([&] {
        auto* counted = static_cast<RepresentationCount*>(data);
        if (counted->count == 0) counted->first = *simprep;
        ++counted->count;
        return PRO_TK_NO_ERROR;
    });
}

struct ItemCollection {
    RepresentationItems* items;
    ProMdl model;
};

bool includeEverything(ComponentVisitData& visitData) {
    visitData.defaultAction = PRO_SIMPREP_INCLUDE;
    visitData.included = true;
    return true;
}

}  // namespace

ProError collectRepresentationItem(ProSimprepitem* item, ProError, ProAppData data) {
    return toolkit::guardVisit([&] {
        auto* collection = static_cast<ItemCollection*>(data);
        if (item->componentIdCount == -1) return PRO_TK_NO_ERROR;
        ProAsmcomppath path{};
        if (ProAsmcomppathInit(collection->model, item->componentIds, item->componentIdCount, &path) !=
            PRO_TK_NO_ERROR)
            return PRO_TK_NO_ERROR;
        (*collection->items)[path] = item->action;
        return PRO_TK_NO_ERROR;
    });
}

bool selectRepresentation(ProMdl model, ComponentVisitData& visitData) {
    ProMdldata modelData{};
    ProMdlDataGet(model, &modelData);
    int modelType = 0;
    ProMdlTypeGet(model, &modelType);

    RepresentationCount counted;
    ProSolidSimprepVisit(model, nullptr, countRepresentation, &counted);
    toolkit::rethrowVisitFailure();
    if (counted.count == 0) return includeEverything(visitData);

    ProSimprep representation = counted.first;
    if (counted.count > 1 && ProSimprepSelect(model, &representation) == PRO_TK_USER_ABORT) return false;
    visitData.included = representation.id == -1;

    ProSimprepdata* data = nullptr;
    if (ProSimprepdataGet(&representation, &data) != PRO_TK_NO_ERROR || !data) return includeEverything(visitData);
    visitData.defaultAction = data->defaultAction;
    ItemCollection collection{visitData.representationItems, model};
    ProSimprepdataitemsVisit(data, collectRepresentationItem, &collection);
    ProSimprepdataFree(&data);
    toolkit::rethrowVisitFailure();
    return true;
}
