#include "toolkit/cip/cipstd/services/xobject.h"

#include <mutex>

#include "toolkit/btk/Abort.h"
#include "toolkit/cip/cipstd/services/cipExceptions.h"
#include "toolkit/cip/cipstd/services/xrtti.h"

namespace {

std::mutex& refCountLock() {
    static std::mutex lock;
    return lock;
}

}  // namespace

xobject::~xobject() = default;

void* xobject::xcast(const xrtti* type) { return type->IsSame(xobject::xrttiGet()) ? this : nullptr; }

int xobject::xhook() { return 0; }

xrttiobject* xobject::xgetrtti() const { return xobject::xrttiGet(); }

bool xobject::xdeleteonzero() { return true; }

void xobject::xpredelete() {}

xrttiobject* xobject::xrttiGet() {
    static xrttiobject* description = nullptr;
    return xrttiDescribe<>(description, "xobject");
}

void xobject::xattach() {
    bool fromZero = false;
    {
        std::lock_guard<std::mutex> guard(refCountLock());
        if (refCount >= 1)
            ++refCount;
        else if (refCount == 0)
            fromZero = true;
        else if (refCount != -1)
            btk::foundationAbort("xrcattach: Invalid value of refcount.");
    }
    if (!fromZero) return;
    // The description is asked outside the lock: it may be built now.
    bool counted = xgetrtti()->IsRefCountable();
    std::lock_guard<std::mutex> guard(refCountLock());
    refCount = counted ? 1 : -1;
}

void xobject::xrelease() {
    bool last = false;
    {
        std::lock_guard<std::mutex> guard(refCountLock());
        if (refCount >= 2)
            --refCount;
        else if (refCount == 1)
            last = true;
        else if (refCount != -1)
            btk::foundationAbort("xrcrelease: Invalid value of refcount.");
    }
    if (!last) return;
    if (xdeleteonzero()) {
        xpredelete();
        delete this;
    } else {
        std::lock_guard<std::mutex> guard(refCountLock());
        refCount = 0;
    }
}

void xobject::xdelete() {
    if (xgetrtti()->IsRefCountable()) xthrow(new cipXRefCountable());
    delete this;
}

int32_t xobject::xrefcount() const {
    std::lock_guard<std::mutex> guard(refCountLock());
    return refCount;
}
