#pragma once
// Objects that the host makes for the plug-in and that the plug-in gives back
// through a free call: tessellation inputs, tessellations, the vertex handles
// of a facet, representation data, selections. A handle is the object's
// address; only a handle that is out is found or released, so a stale or
// foreign pointer is refused instead of followed. What the plug-in never
// gives back goes with the session.
#include <memory>
#include <unordered_map>
#include <utility>

namespace host {

template <typename Object>
class HandleStore {
public:
    template <typename... Arguments>
    Object* make(Arguments&&... arguments) {
        auto object = std::make_unique<Object>(std::forward<Arguments>(arguments)...);
        Object* address = object.get();
        objects_.emplace(address, std::move(object));
        return address;
    }

    // The object whose address `handle` is, if it is out; else null.
    Object* find(const void* handle) const {
        auto found = objects_.find(handle);
        return found == objects_.end() ? nullptr : found->second.get();
    }

    // Takes an object that is out off the store, handing its ownership to the
    // caller; null for any other pointer.
    std::unique_ptr<Object> take(const void* handle) {
        auto found = objects_.find(handle);
        if (found == objects_.end()) return nullptr;
        std::unique_ptr<Object> object = std::move(found->second);
        objects_.erase(found);
        return object;
    }

    // Destroys an object that is out; false, destroying nothing, for any other pointer.
    bool release(const void* handle) { return take(handle) != nullptr; }

    size_t outstanding() const { return objects_.size(); }

private:
    std::unordered_map<const void*, std::unique_ptr<Object>> objects_;
};

}  // namespace host
