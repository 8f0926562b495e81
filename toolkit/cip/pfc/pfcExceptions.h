#pragma once
// The exceptions of the object toolkit's wrappers, and the check of a host
// status that turns a failure into one of them.
#include "toolkit/cip/cipstd/services/xthrowable.h"

class pfcXPFC : public xthrowable {
    XOBJECT_DECLARE()
public:
    using xthrowable::xthrowable;
};

// Raised in a method: holds the method's name.
class pfcXInAMethod : public pfcXPFC {
    XOBJECT_DECLARE()
public:
    explicit pfcXInAMethod(const char* method, xstring message = xstring(""));
    const xstring& GetMethodName() const { return method; }
    std::string Details() const override;

private:
    xstring method;
};

// A host status came back: holds the toolkit function's name and the code.
class pfcXToolkitError : public pfcXInAMethod {
    XOBJECT_DECLARE()
public:
    pfcXToolkitError(const char* function, int code, const char* method);
    const xstring& GetToolkitFunctionName() const { return function; }
    int GetErrorCode() const { return code; }
    std::string Details() const override;

private:
    xstring function;
    int code;
};

class pfcXToolkitUnrecognizedErrorCode : public pfcXToolkitError {
    XOBJECT_DECLARE()
public:
    using pfcXToolkitError::pfcXToolkitError;
};

#define TOOLKIT_ERROR(status, Name)                  \
    class pfcXToolkit##Name : public pfcXToolkitError { \
        XOBJECT_DECLARE()                            \
    public:                                          \
        using pfcXToolkitError::pfcXToolkitError;    \
    };
#include "toolkit/cip/pfc/ToolkitErrors.def"
#undef TOOLKIT_ERROR

// Holds the argument's name.
class pfcXBadArgument : public pfcXInAMethod {
    XOBJECT_DECLARE()
public:
    pfcXBadArgument(const char* method, const char* argument);
    const xstring& GetArgumentName() const { return argument; }

private:
    xstring argument;
};

// A host code that the enumeration doesn't know: holds the host type's name and the code.
class pfcXInvalidEnumValue : public pfcXInAMethod {
    XOBJECT_DECLARE()
public:
    pfcXInvalidEnumValue(const char* method, const char* typeName, int code);
    const xstring& GetTypeName() const { return typeName; }
    int GetValue() const { return value; }
    std::string Details() const override;

private:
    xstring typeName;
    int value;
};

#define PFC_METHOD_EXCEPTION(Class)                  \
    class Class : public pfcXInAMethod {             \
        XOBJECT_DECLARE()                            \
    public:                                          \
        using pfcXInAMethod::pfcXInAMethod;          \
    };
PFC_METHOD_EXCEPTION(pfcXModelNotInSession)
PFC_METHOD_EXCEPTION(pfcXInvalidSelection)
PFC_METHOD_EXCEPTION(pfcXStringTooLong)
PFC_METHOD_EXCEPTION(pfcXSequenceTooLong)
PFC_METHOD_EXCEPTION(pfcXNumberTooLarge)
PFC_METHOD_EXCEPTION(pfcXEmptyString)
#undef PFC_METHOD_EXCEPTION

// Returns on status 0; raises the status's exception otherwise.
void checkToolkitStatus(int status, const char* function, const char* method);
