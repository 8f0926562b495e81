#pragma once
// The base of every exception of the object toolkit, itself an object.
//
// An exception is a heap object held by an attached handle. It is thrown
// inside an xexception, a std::exception that carries that handle: so a
// toolkit exception that nothing in between catches ends the command at the
// command action's guard, like any other failure of a run, and never crosses
// into the host. Callers that want the object read it from the handle.
#include <exception>
#include <string>

#include "toolkit/cip/cipstd/services/xrchandle.h"
#include "toolkit/cip/cipstd/services/xrtti.h"
#include "toolkit/cip/cipstd/strlibsrc/xstring.h"

// The members that every class of the toolkit has: its description, and the
// cast through its bases. XOBJECT_DEFINE makes them for a class and its bases.
#define XOBJECT_DECLARE()                             \
public:                                               \
    static xrttiobject* xrttiGet();                   \
    xrttiobject* xgetrtti() const override;           \
    void* xcast(const xrtti* type) override;

#define XOBJECT_DEFINE(Class, typeName, ...)                                                  \
    xrttiobject* Class::xrttiGet() {                                                          \
        static xrttiobject* description = nullptr;                                            \
        return xrttiDescribe<__VA_ARGS__>(description, typeName);                             \
    }                                                                                         \
    xrttiobject* Class::xgetrtti() const { return xrttiGet(); }                               \
    void* Class::xcast(const xrtti* type) { return xcastThrough<Class, __VA_ARGS__>(this, type); }

// The same for the container templates, defined in the class: every
// instance of a template shares the description of the template's name.
#define XOBJECT_DECLARE_TEMPLATE(Class, typeName)                                   \
public:                                                                             \
    static xrttiobject* xrttiGet() {                                                \
        static xrttiobject* description = nullptr;                                  \
        return xrttiDescribe<xobject>(description, typeName);                       \
    }                                                                               \
    xrttiobject* xgetrtti() const override { return xrttiGet(); }                   \
    void* xcast(const xrtti* type) override { return xcastThrough<Class, xobject>(this, type); }

class xthrowable : public virtual xobject {
    XOBJECT_DECLARE()
public:
    explicit xthrowable(xstring message = xstring(""));
    const xstring& GetMessage() const { return message; }
    // The details after the message: a method's name, a code and the like.
    virtual std::string Details() const;

private:
    xstring message;
};

class xexception : public std::exception {
public:
    explicit xexception(xrchandle<xthrowable> thrown);
    const char* what() const noexcept override { return text.c_str(); }
    const xrchandle<xthrowable>& handle() const { return thrown; }

private:
    xrchandle<xthrowable> thrown;
    std::string text;
};

// Attaches a new exception object and throws it.
[[noreturn]] void xthrow(xthrowable* exception);
