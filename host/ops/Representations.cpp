// Simplified representations: their visit, the user's choice of one, and
// the data of one with its items.
#include <span>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"
#include "host/ops/Visits.h"

namespace host {

// The filter may be null; the callbacks get a representation item.
ProError ops::ProSolidSimprepVisit(Session& session, ProSolid solid, ProSimprepFilterAction filter,
                                   ProSimprepVisitAction action, ProAppData data) {
    auto itemOf = [](const Representation& representation, ProSolid owner) {
        return ProSimprep{PRO_ITEM_SIMPREP, representation.id, owner};
    };
    return visitOfSolid(session, solid, &Model::representations, itemOf, filter, action, data);
}

// The user's choice comes from the script: a representation by name, or a
// cancel (PRO_TK_USER_ABORT). No answer, or a name the model lacks, is
// logged and fails.
ProError ops::ProSimprepSelect(Session& session, ProSolid solid, ProSimprep* simprep) {
    const Model* model = modelOf(session, solid);
    if (!model || !simprep) return PRO_TK_BAD_INPUTS;
    std::optional<RepresentationAnswer> answer =
        session.script().nextRepresentation("a simplified representation of " + narrowed(model->name));
    if (!answer) return PRO_TK_GENERAL_ERROR;
    if (answer->cancelled) return PRO_TK_USER_ABORT;
    const Representation* chosen = model->findRepresentation(answer->name);
    if (!chosen) {
        session.errors().add("ProSimprepSelect: the script chose the representation \"" + narrowed(answer->name) +
                              "\", which \"" + narrowed(model->name) + "\" doesn't have");
        return PRO_TK_GENERAL_ERROR;
    }
    *simprep = ProSimprep{PRO_ITEM_SIMPREP, chosen->id, solid};
    return PRO_TK_NO_ERROR;
}

// The data's items are a host array; ProSimprepdataFree frees both.
ProError ops::ProSimprepdataGet(Session& session, ProSimprep* simprep, ProSimprepdata** data) {
    const Model* owner = simprep ? modelOf(session, simprep->owner) : nullptr;
    if (!owner || !data || simprep->type != PRO_ITEM_SIMPREP) return PRO_TK_BAD_INPUTS;
    const Representation* representation = owner->findRepresentation(simprep->id);
    if (!representation) return PRO_TK_E_NOT_FOUND;
    ProSimprepitem* items = session.arrays().copyOf<ProSimprepitem>(representation->items, "representation items");
    *data = session.handles().representationData.make(ProSimprepdata{representation->defaultAction, items});
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSimprepdataitemsVisit(Session& session, ProSimprepdata* data, ProSimprepitemVisitAction action,
                                       ProAppData appData) {
    if (!action) return PRO_TK_BAD_INPUTS;
    int count = session.handles().representationData.find(data) ? session.arrays().size(data->items) : -1;
    if (count < 0) {
        session.errors().add("ProSimprepdataitemsVisit: the pointer is no representation data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    std::span<ProSimprepitem> items(data->items, static_cast<size_t>(count));
    auto noFilter = static_cast<ProError (*)(ProSimprepitem*, ProAppData)>(nullptr);
    return visitEach(
        items, [](ProSimprepitem& item) { return &item; }, noFilter, action, appData);
}

ProError ops::ProSimprepdataFree(Session& session, ProSimprepdata** data) {
    std::unique_ptr<ProSimprepdata> freed = data ? session.handles().representationData.take(*data) : nullptr;
    if (!freed) {
        session.errors().add("ProSimprepdataFree: the pointer is no representation data that is out");
        return PRO_TK_BAD_INPUTS;
    }
    session.arrays().free(freed->items);
    *data = nullptr;
    return PRO_TK_NO_ERROR;
}

}  // namespace host
