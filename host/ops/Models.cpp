// The current model and mode, and what a model says of itself.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

constexpr size_t modelNameCapacity = sizeof(ProMdlName) / sizeof(ProWchar);
constexpr size_t modelTypeCapacity = sizeof(ProMdldata::type) / sizeof(ProWchar);

std::u16string_view typeText(int type) {
    if (type == PRO_MDL_ASSEMBLY) return u"ASM";
    if (type == PRO_MDL_PART) return u"PRT";
    return u"";
}

}  // namespace

// Fails, leaving the output as it was, when no model is open.
ProError ops::ProMdlCurrentGet(Session& session, ProMdl* model) {
    if (!model) return PRO_TK_BAD_INPUTS;
    if (!session.currentModel()) return PRO_TK_E_NOT_FOUND;
    *model = handleOf<ProMdl>(*session.currentModel());
    return PRO_TK_NO_ERROR;
}

// The bare name, cut to fit the 80 units of a model name.
ProError ops::ProMdlNameGet(Session& session, ProMdl handle, ProMdlName name) {
    const Model* model = modelOf(session, handle);
    if (!model || !name) return PRO_TK_BAD_INPUTS;
    copyToBuffer(name, modelNameCapacity, model->name);
    return PRO_TK_NO_ERROR;
}

ProError ops::ProMdlTypeGet(Session& session, ProMdl handle, int* type) {
    const Model* model = modelOf(session, handle);
    if (!model || !type) return PRO_TK_BAD_INPUTS;
    *type = model->type;
    return PRO_TK_NO_ERROR;
}

// The name and the type's short text; a model of the headless host has no file path.
ProError ops::ProMdlDataGet(Session& session, ProMdl handle, ProMdldata* data) {
    const Model* model = modelOf(session, handle);
    if (!model || !data) return PRO_TK_BAD_INPUTS;
    *data = ProMdldata{};
    copyToBuffer(data->name, modelNameCapacity, model->name);
    copyToBuffer(data->type, modelTypeCapacity, typeText(model->type));
    return PRO_TK_NO_ERROR;
}

ProError ops::ProModeCurrentGet(Session& session, int* mode) {
    if (!mode) return PRO_TK_BAD_INPUTS;
    *mode = session.mode();
    return PRO_TK_NO_ERROR;
}

// The model's own item: the model's type, the id PRO_MODEL_ITEM_ID, the model as owner.
ProError ops::ProMdlToModelitem(Session& session, ProMdl handle, ProModelitem* item) {
    const Model* model = modelOf(session, handle);
    if (!model || !item) return PRO_TK_BAD_INPUTS;
    *item = ProModelitem{model->type, PRO_MODEL_ITEM_ID, handle};
    return PRO_TK_NO_ERROR;
}

}  // namespace host
