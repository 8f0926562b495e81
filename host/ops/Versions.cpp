// Version stamps: a model's stamp changes with every modification.
#include <cstring>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

// FNV-1a over the name's code units.
uint64_t nameHash(std::u16string_view name) {
    uint64_t hash = 14695981039346656037ull;
    for (char16_t unit : name) {
        hash ^= unit;
        hash *= 1099511628211ull;
    }
    return hash;
}

}  // namespace

// The stamp holds the model's place in the session, its version and a hash
// of its name: two models never share a stamp, and a modified model gets a
// new one.
ProError ops::ProMdlVerstampGet(Session& session, ProMdl handle, ProMdlVerstamp* stamp) {
    const Model* model = modelOf(session, handle);
    if (!model || !stamp) return PRO_TK_BAD_INPUTS;
    const auto& models = session.models();
    uint32_t place = 0;
    while (&models[place] != model) ++place;
    int32_t version = model->version;
    uint64_t hash = nameHash(model->name);
    std::memcpy(stamp->bytes, &place, 4);
    std::memcpy(stamp->bytes + 4, &version, 4);
    std::memcpy(stamp->bytes + 8, &hash, 8);
    return PRO_TK_NO_ERROR;
}

ProBoolean ops::ProVerstampEqual(Session&, ProMdlVerstamp first, ProMdlVerstamp second) {
    return std::memcmp(first.bytes, second.bytes, sizeof(first.bytes)) == 0 ? PRO_B_TRUE : PRO_B_FALSE;
}

}  // namespace host
