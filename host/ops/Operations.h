#pragma once
// The host's implementations of the toolkit operations: for each operation
// of the list, host::ops::<name> with the toolkit signature and the session
// it acts on in front. The shims (OperationShims.h) find that session and
// call them. They are defined by area in the files beside this one, each
// with its qualified name, so a definition whose shape differs from the list
// doesn't compile.
#include <type_traits>

#include "toolkit/ProToolkit.h"

namespace host {

class Session;

// The shape of an implementation: the toolkit signature with the session in front.
template <typename Function>
struct ImplementationSignatureOf;
template <typename Result, typename... Arguments>
struct ImplementationSignatureOf<Result (*)(Arguments...)> {
    using type = Result(Session&, Arguments...);
};
template <typename Function>
using ImplementationSignature = typename ImplementationSignatureOf<Function>::type;

namespace ops {

#define PRO_OPERATION(result, name, parameters, arguments, miss) ImplementationSignature<decltype(&::name)> name;
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION

}  // namespace ops
}  // namespace host
