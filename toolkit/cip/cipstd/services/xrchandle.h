#pragma once
// The reference-counted pointer of the object toolkit. It attaches on copy and
// releases on destruction. Two values have no object behind them: null, and
// the nil handle, the reserved pointer value 22; neither is attached,
// released or cast.
#include <cstdint>
#include <utility>

#include "toolkit/cip/cipstd/services/xobject.h"

inline constexpr std::uintptr_t xnilHandleValue = 22;

template <typename T>
T* xnil() {
    return reinterpret_cast<T*>(xnilHandleValue);
}

template <typename T>
bool xisobject(const T* pointer) {
    return pointer && reinterpret_cast<std::uintptr_t>(pointer) != xnilHandleValue;
}

template <typename T>
class xrchandle {
public:
    xrchandle() = default;
    xrchandle(T* object) : object_(object) { attach(); }
    xrchandle(const xrchandle& other) : object_(other.object_) { attach(); }
    xrchandle(xrchandle&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <typename U>
    xrchandle(const xrchandle<U>& other) : object_(other.get()) {
        attach();
    }
    ~xrchandle() { release(); }

    xrchandle& operator=(xrchandle other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    static xrchandle nil() {
        xrchandle handle;
        handle.object_ = xnil<T>();
        return handle;
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    bool isNull() const { return object_ == nullptr; }
    bool isNil() const { return reinterpret_cast<std::uintptr_t>(object_) == xnilHandleValue; }
    // An object stands behind the handle: neither null nor nil.
    explicit operator bool() const { return xisobject(object_); }

private:
    void attach() {
        if (xisobject(object_)) object_->xattach();
    }
    void release() {
        if (xisobject(object_)) object_->xrelease();
    }

    T* object_ = nullptr;
};
