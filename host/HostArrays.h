#pragma once
// The host's arrays (ProArray): a block with a hidden header, the element
// count and size, in front of the elements; the plug-in holds a pointer to
// the first element. The host keeps a record of every array it handed out so
// that tests can see what a run left unfreed, and so that a pointer that is
// no live array is refused instead of read.
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>
#include <unordered_map>

namespace host {

class HostArrays {
public:
    HostArrays() = default;
    ~HostArrays();
    HostArrays(const HostArrays&) = delete;
    HostArrays& operator=(const HostArrays&) = delete;

    // A new array of `count` zeroed elements of `elementSize` bytes; `kind`,
    // a literal, says what it holds ("tessellation vertices", "layers", ...).
    void* allocate(size_t count, size_t elementSize, const char* kind);

    // A new array holding a copy of `elements`.
    template <typename Element>
    Element* copyOf(std::span<const Element> elements, const char* kind) {
        static_assert(std::is_trivially_copyable_v<Element>);
        void* array = allocate(elements.size(), sizeof(Element), kind);
        copyBytes(array, elements.data(), elements.size_bytes());
        return static_cast<Element*>(array);
    }

    bool isLive(const void* array) const { return kinds_.contains(array); }
    // The element count from the array's header; -1 for a pointer that is no live array.
    int size(const void* array) const;
    // Frees a live array; false, freeing nothing, for any other pointer.
    bool free(void* array);

    size_t outstanding() const { return kinds_.size(); }
    // How many live arrays hold this kind of thing.
    size_t outstanding(std::string_view kind) const;

private:
    static void copyBytes(void* to, const void* from, size_t bytes);

    std::unordered_map<const void*, const char*> kinds_;
};

}  // namespace host
