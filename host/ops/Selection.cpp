// The user's picks of components, answered by the script.
#include <vector>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

std::string describe(const ComponentPath& pick) {
    std::string text = "(";
    for (size_t index = 0; index < pick.size(); ++index) text += (index ? ", " : "") + std::to_string(pick[index]);
    return text + ")";
}

// The picks as selections from the top model; null, with the reason logged,
// if one of them doesn't lead through the top model's components.
std::optional<std::vector<ProSelection>> selectionsFor(Session& session, const Model& top,
                                                       const std::vector<ComponentPath>& picks) {
    std::vector<ProSelection> selections;
    for (const ComponentPath& pick : picks) {
        if (pick.size() > PRO_MAX_ASSEM_LEVEL || !componentsAlong(top, pick)) {
            session.errors().add("ProSelect: the script picked the component path " + describe(pick) +
                                 ", which doesn't lead through the components of \"" + ops::narrowed(top.name) + "\"");
            return std::nullopt;
        }
        Selection* selection = session.handles().selections.make();
        selection->path.ownerModel = ops::handleOf<ProMdl>(top);
        std::copy(pick.begin(), pick.end(), selection->path.componentIds);
        selection->path.componentIdCount = static_cast<int>(pick.size());
        selections.push_back(ops::handleOf<ProSelection>(*selection));
    }
    return selections;
}

}  // namespace

// The script's next picks, as component paths from the current model. The
// selections are a host array of handles that stay the host's. A cancel
// answers PRO_TK_USER_ABORT with the count 0; a question that the script
// doesn't answer, or answers with a path that leads nowhere, fails with the
// count 0 and the reason logged.
ProError ops::ProSelect(Session& session, const char* types, int maxCount, ProSelection*, void*, void*, void*,
                        ProSelection** selections, int* count) {
    if (!selections || !count) return PRO_TK_BAD_INPUTS;
    *count = 0;
    session.selectRequests().push_back({std::string(textOf(types)), maxCount});
    const Model* top = session.currentModel();
    if (!top) {
        session.errors().add("ProSelect: there is no current model to pick from");
        return PRO_TK_GENERAL_ERROR;
    }
    std::optional<SelectionAnswer> answer = session.script().nextSelection(textOf(types));
    if (!answer) return PRO_TK_GENERAL_ERROR;
    if (answer->cancelled) return PRO_TK_USER_ABORT;
    if (maxCount > 0 && answer->picks.size() > static_cast<size_t>(maxCount)) {
        session.errors().add("ProSelect: the script picked " + std::to_string(answer->picks.size()) +
                              " items where the plug-in allowed " + std::to_string(maxCount));
        return PRO_TK_GENERAL_ERROR;
    }
    std::optional<std::vector<ProSelection>> picked = selectionsFor(session, *top, answer->picks);
    if (!picked) return PRO_TK_GENERAL_ERROR;
    *selections = session.arrays().copyOf<ProSelection>(*picked, "selections");
    *count = static_cast<int>(picked->size());
    return PRO_TK_NO_ERROR;
}

ProError ops::ProSelectionAsmcomppathGet(Session& session, ProSelection selection, ProAsmcomppath* path) {
    const Selection* found = session.handles().selections.find(selection);
    if (!found || !path) return PRO_TK_BAD_INPUTS;
    *path = found->path;
    return PRO_TK_NO_ERROR;
}

}  // namespace host
