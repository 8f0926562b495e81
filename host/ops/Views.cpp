// The current view and the saved views of a model.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

void copyMatrix(const Matrix& from, ProMatrix to) {
    for (size_t row = 0; row < 4; ++row) {
        for (size_t column = 0; column < 4; ++column) to[row][column] = from[row][column];
    }
}

bool isSavedViewOf(const Model& model, const View* view) {
    for (const View& saved : model.savedViews) {
        if (&saved == view) return true;
    }
    return false;
}

}  // namespace

// A null view is the current view; any other must be a saved view of the model.
ProError ops::ProViewMatrixGet(Session& session, ProMdl handle, ProView view, ProMatrix matrix) {
    const Model* model = modelOf(session, handle);
    if (!model || !matrix) return PRO_TK_BAD_INPUTS;
    if (!view) {
        copyMatrix(model->currentView, matrix);
        return PRO_TK_NO_ERROR;
    }
    const View* saved = objectOf<View>(view);
    if (!isSavedViewOf(*model, saved)) return PRO_TK_BAD_INPUTS;
    copyMatrix(saved->matrix, matrix);
    return PRO_TK_NO_ERROR;
}

// The names as a host array of lines, in the model's order; the alternate
// names, when asked for, are a second array of the same names.
ProError ops::ProViewNamesGet(Session& session, ProMdl handle, ProLine** names, ProLine** alternateNames, int* count) {
    const Model* model = modelOf(session, handle);
    if (!model || !names || !count) return PRO_TK_BAD_INPUTS;
    auto nameArray = [&](const char* kind) {
        auto* lines =
            static_cast<ProLine*>(session.arrays().allocate(model->savedViews.size(), sizeof(ProLine), kind));
        for (size_t index = 0; index < model->savedViews.size(); ++index)
            copyToLine(lines[index], model->savedViews[index].name);
        return lines;
    };
    *names = nameArray("view names");
    if (alternateNames) *alternateNames = nameArray("alternate view names");
    *count = static_cast<int>(model->savedViews.size());
    return PRO_TK_NO_ERROR;
}

// The name is compared exact in case with the names as ProViewNamesGet
// gives them, so a long name cut to a line still finds its view.
ProError ops::ProViewNameToView(Session& session, ProMdl handle, const ProWchar* name, ProView* view) {
    const Model* model = modelOf(session, handle);
    if (!model || !name || !view) return PRO_TK_BAD_INPUTS;
    for (const View& saved : model->savedViews) {
        if (std::u16string_view(saved.name).substr(0, lineCapacity - 1) == name) {
            *view = handleOf<ProView>(saved);
            return PRO_TK_NO_ERROR;
        }
    }
    return PRO_TK_E_NOT_FOUND;
}

}  // namespace host
