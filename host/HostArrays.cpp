#include "host/HostArrays.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace host {
namespace {

struct ArrayHeader {
    size_t count;
    size_t elementSize;
};

// The header is padded so that the elements keep the alignment of malloc.
constexpr size_t headerBytes =
    (sizeof(ArrayHeader) + alignof(std::max_align_t) - 1) / alignof(std::max_align_t) * alignof(std::max_align_t);

unsigned char* blockOf(const void* array) {
    return static_cast<unsigned char*>(const_cast<void*>(array)) - headerBytes;
}

const ArrayHeader& headerOf(const void* array) { return *reinterpret_cast<const ArrayHeader*>(blockOf(array)); }

}  // namespace

HostArrays::~HostArrays() {
    for (const auto& [array, kind] : kinds_) std::free(blockOf(array));
}

void* HostArrays::allocate(size_t count, size_t elementSize, const char* kind) {
    void* block = std::calloc(1, headerBytes + count * elementSize);
    if (!block) throw std::bad_alloc();
    new (block) ArrayHeader{count, elementSize};
    void* array = static_cast<unsigned char*>(block) + headerBytes;
    kinds_.emplace(array, kind);
    return array;
}

int HostArrays::size(const void* array) const {
    if (!isLive(array)) return -1;
    return static_cast<int>(headerOf(array).count);
}

bool HostArrays::free(void* array) {
    if (kinds_.erase(array) != 1) return false;
    std::free(blockOf(array));
    return true;
}

size_t HostArrays::outstanding(std::string_view kind) const {
    return static_cast<size_t>(std::count_if(
        kinds_.begin(), kinds_.end(), [&](const auto& entry) { return std::string_view(entry.second) == kind; }));
}

void HostArrays::copyBytes(void* to, const void* from, size_t bytes) {
    if (bytes > 0) std::memcpy(to, from, bytes);
}

}  // namespace host
