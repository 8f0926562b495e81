#pragma once
// The object toolkit library's own exceptions.
#include "toolkit/cip/cipstd/services/xthrowable.h"

class cipXException : public xthrowable {
    XOBJECT_DECLARE()
public:
    using xthrowable::xthrowable;
};

// A checked cast failed; holds the name of the type asked for.
class cipXTypeMismatch : public cipXException {
    XOBJECT_DECLARE()
public:
    explicit cipXTypeMismatch(const char* typeName);
    const xstring& GetTypeName() const { return typeName; }
    std::string Details() const override;

private:
    xstring typeName;
};

class cipXInvalidArrayIndex : public cipXException {
    XOBJECT_DECLARE()
public:
    cipXInvalidArrayIndex();
};

class cipXInvalidSeqIndex : public cipXException {
    XOBJECT_DECLARE()
public:
    cipXInvalidSeqIndex();
};

class cipXNegativeIndex : public cipXException {
    XOBJECT_DECLARE()
public:
    cipXNegativeIndex();
};

class cipXRefCountable : public cipXException {
    XOBJECT_DECLARE()
public:
    cipXRefCountable();
};

// The handle to `object` seen as T: null and the nil handle pass unchanged,
// any other object that isn't a T raises cipXTypeMismatch with T's name.
template <typename T, typename From>
xrchandle<T> xcheckedcast(const xrchandle<From>& object) {
    if (!object) return xrchandle<T>(reinterpret_cast<T*>(object.get()));
    void* seen = object->xcast(T::xrttiGet());
    if (!seen) xthrow(new cipXTypeMismatch(static_cast<const char*>(T::xrttiGet()->GetName())));
    return xrchandle<T>(static_cast<T*>(seen));
}
