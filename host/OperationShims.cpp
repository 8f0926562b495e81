// The shims, made from the list of operations.
#include "host/OperationShims.h"

#include <string_view>

#include "host/ActiveSession.h"
#include "host/Session.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

// What a call answers without a session: a failure, or "not equal" from an
// operation that answers a boolean.
constexpr int answerWithoutSession(std::string_view resultType) {
    return resultType == "ProBoolean" ? int{PRO_B_FALSE} : int{PRO_TK_GENERAL_ERROR};
}

// The handle a fault can name: the call's first argument, if it is a pointer.
const void* handleArgument() { return nullptr; }

template <typename First, typename... Rest>
const void* handleArgument(First first, Rest...) {
    if constexpr (std::is_pointer_v<First> && !std::is_function_v<std::remove_pointer_t<First>>) {
        return static_cast<const void*>(first);
    } else {
        return nullptr;
    }
}

template <HostOperation operation, int failure, typename Result, typename... Arguments>
Result runShim(int context, Result (&implementation)(Session&, Arguments...),
               std::type_identity_t<Arguments>... arguments) {
    Session* session = sessionFor(context);
    if (!session) return static_cast<Result>(failure);
    uint64_t call = session->calls().record(operation);
    if (!session->faults().empty()) {
        if (auto status = session->faults().answerFor(operation, call, handleArgument(arguments...))) {
            return static_cast<Result>(*status);
        }
    }
    return implementation(*session, arguments...);
}

}  // namespace

#define VANTREL_CONTEXT_FIRST(...) (int context __VA_OPT__(, ) __VA_ARGS__)
#define VANTREL_AFTER(...) __VA_OPT__(, ) __VA_ARGS__
#define PRO_OPERATION(result, name, parameters, arguments, miss)                                              \
    result shims::name VANTREL_CONTEXT_FIRST parameters {                                                     \
        return runShim<HostOperation::name, answerWithoutSession(#result)>(context, ops::name VANTREL_AFTER \
                                                                               arguments);                    \
    }
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
#undef VANTREL_AFTER
#undef VANTREL_CONTEXT_FIRST

}  // namespace host
