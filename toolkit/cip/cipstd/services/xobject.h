#pragma once
// The virtual base of every object of the object toolkit: one reference count
// with three states (0 not yet attached, 1 or more counted, -1 not counted),
// kept under one process-wide lock.
#include <cstdint>

class xrtti;
class xrttiobject;

class xobject {
public:
    xobject() = default;
    xobject(const xobject&) : refCount(0) {}
    xobject& operator=(const xobject&) { return *this; }

    virtual ~xobject();
    // This object seen as the type described, or null.
    virtual void* xcast(const xrtti* type);
    virtual int xhook();
    virtual xrttiobject* xgetrtti() const;
    // Whether the object is deleted when its count falls to zero.
    virtual bool xdeleteonzero();
    virtual void xpredelete();
    virtual void xattach();
    virtual void xrelease();
    // For objects that aren't reference-countable.
    virtual void xdelete();

    int32_t xrefcount() const;
    static xrttiobject* xrttiGet();

private:
    int32_t refCount = 0;
};
