#include "toolkit/cip/pfc/pfcExceptions.h"

XOBJECT_DEFINE(pfcXPFC, "pfcExceptions::XPFC", xthrowable)
XOBJECT_DEFINE(pfcXInAMethod, "pfcExceptions::XInAMethod", pfcXPFC)
XOBJECT_DEFINE(pfcXToolkitError, "pfcExceptions::XToolkitError", pfcXInAMethod)
XOBJECT_DEFINE(pfcXToolkitUnrecognizedErrorCode, "pfcExceptions::XToolkitUnrecognizedErrorCode", pfcXToolkitError)
XOBJECT_DEFINE(pfcXBadArgument, "pfcExceptions::XBadArgument", pfcXInAMethod)
XOBJECT_DEFINE(pfcXInvalidEnumValue, "pfcExceptions::XInvalidEnumValue", pfcXInAMethod)
XOBJECT_DEFINE(pfcXModelNotInSession, "pfcExceptions::XModelNotInSession", pfcXInAMethod)
XOBJECT_DEFINE(pfcXInvalidSelection, "pfcExceptions::XInvalidSelection", pfcXInAMethod)
XOBJECT_DEFINE(pfcXStringTooLong, "pfcExceptions::XStringTooLong", pfcXInAMethod)
XOBJECT_DEFINE(pfcXSequenceTooLong, "pfcExceptions::XSequenceTooLong", pfcXInAMethod)
XOBJECT_DEFINE(pfcXNumberTooLarge, "pfcExceptions::XNumberTooLarge", pfcXInAMethod)
XOBJECT_DEFINE(pfcXEmptyString, "pfcExceptions::XEmptyString", pfcXInAMethod)

#define TOOLKIT_ERROR(status, Name) \
    XOBJECT_DEFINE(pfcXToolkit##Name, "pfcExceptions::XToolkit" #Name, pfcXToolkitError)
#include "toolkit/cip/pfc/ToolkitErrors.def"
#undef TOOLKIT_ERROR

pfcXInAMethod::pfcXInAMethod(const char* methodName, xstring message)
    : pfcXPFC(std::move(message)), method(methodName) {}

std::string pfcXInAMethod::Details() const { return std::string("in ") + static_cast<const char*>(method); }

pfcXToolkitError::pfcXToolkitError(const char* functionName, int status, const char* method)
    : pfcXInAMethod(method), function(functionName), code(status) {}

std::string pfcXToolkitError::Details() const {
    return pfcXInAMethod::Details() + ", " + static_cast<const char*>(function) + " " + std::to_string(code);
}

pfcXBadArgument::pfcXBadArgument(const char* method, const char* argumentName)
    : pfcXInAMethod(method), argument(argumentName) {}

pfcXInvalidEnumValue::pfcXInvalidEnumValue(const char* method, const char* hostType, int code)
    : pfcXInAMethod(method), typeName(hostType), value(code) {}

std::string pfcXInvalidEnumValue::Details() const {
    return pfcXInAMethod::Details() + ", " + static_cast<const char*>(typeName) + " " + std::to_string(value);
}

void checkToolkitStatus(int status, const char* function, const char* method) {
    switch (status) {
    case 0:
        return;
#define TOOLKIT_ERROR(code, Name) \
    case code:                    \
        xthrow(new pfcXToolkit##Name(function, status, method));
#include "toolkit/cip/pfc/ToolkitErrors.def"
#undef TOOLKIT_ERROR
    default:
        xthrow(new pfcXToolkitUnrecognizedErrorCode(function, status, method));
    }
}
