#pragma once
// The host's visits: for each item in order, the filter (if there is one)
// and then the action. A filter answer of PRO_TK_CONTINUE passes over the
// item; any other answer is handed to the action as its status. An action
// answer other than 0 ends the visit and is the visit's result.
#include <type_traits>
#include <vector>

#include "host/ops/OperationSupport.h"
#include "toolkit/ProToolkit.h"

namespace host::ops {

// `handleOf(item)` makes what the callbacks get: a handle, or a record
// (a feature, a representation) that they get a pointer to.
template <typename Items, typename HandleOf, typename Filter, typename Action>
ProError visitEach(Items&& items, HandleOf handleOf, Filter filter, Action action, ProAppData data) {
    for (auto& item : items) {
        auto handle = handleOf(item);
        auto argument = [&] {
            if constexpr (std::is_pointer_v<decltype(handle)>)
                return handle;
            else
                return &handle;
        }();
        ProError status = filter ? filter(argument, data) : PRO_TK_NO_ERROR;
        if (status == PRO_TK_CONTINUE) continue;
        ProError answer = action(argument, status, data);
        if (answer != PRO_TK_NO_ERROR) return answer;
    }
    return PRO_TK_NO_ERROR;
}

// The visit of one kind of a solid's items; `itemOf(item, solid)` makes
// what the callbacks get.
template <typename Item, typename ItemOf, typename Filter, typename Action>
ProError visitOfSolid(Session& session, ProSolid solid, std::vector<Item> Model::*items, ItemOf itemOf, Filter filter,
                      Action action, ProAppData data) {
    const Model* model = modelOf(session, solid);
    if (!model || !action) return PRO_TK_BAD_INPUTS;
    return visitEach(
        model->*items, [&](const Item& item) { return itemOf(item, solid); }, filter, action, data);
}

// What the callbacks of a geometry visit get: the item's handle.
template <typename Handle>
auto handleMaker() {
    return [](const auto& item, auto...) { return handleOf<Handle>(item); };
}

}  // namespace host::ops
