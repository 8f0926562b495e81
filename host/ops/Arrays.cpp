// The host's arrays: their size and their release.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {

// A pointer that is no live host array is refused without being read.
ProError ops::ProArraySizeGet(Session& session, ProArray array, int* size) {
    if (!size) return PRO_TK_BAD_INPUTS;
    int count = session.arrays().size(array);
    if (count < 0) {
        session.errors().add("ProArraySizeGet: the pointer is no live host array");
        return PRO_TK_BAD_INPUTS;
    }
    *size = count;
    return PRO_TK_NO_ERROR;
}

// Frees the array and sets the plug-in's pointer to null; a pointer that is
// no live host array (freed already, or never the host's) frees nothing.
ProError ops::ProArrayFree(Session& session, ProArray* array) {
    if (!array || !session.arrays().free(*array)) {
        session.errors().add("ProArrayFree: the pointer is no live host array");
        return PRO_TK_BAD_INPUTS;
    }
    *array = nullptr;
    return PRO_TK_NO_ERROR;
}

}  // namespace host
