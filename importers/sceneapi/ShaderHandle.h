#pragma once
// The text of an inline shader as the scene file writer captures it. While a
// shader is being described its statements land here instead of the stream;
// the finished text is copied verbatim wherever the handle is used.
#include <cstddef>
#include <cstdint>

struct ShaderHandle {
    ShaderHandle() = default;
    ShaderHandle(const ShaderHandle&) = delete;
    ShaderHandle& operator=(const ShaderHandle&) = delete;
    ~ShaderHandle();

    // Appends bytes and keeps the text zero-terminated. Grows to
    // size + (capacity + 256) * 2 once length + 1 + size reaches the capacity.
    // The bytes may lie inside this handle's own text.
    void append(const char* bytes, std::size_t size);

    char name[8] = {'E', 'R', 'R', 'O', 'R', 0, 0, 0};
    char* text = nullptr;
    std::int32_t length = 0;
    std::int32_t capacity = -1;
    // Set once a binary block lands in the text: it is then copied by length,
    // not as a zero-terminated string.
    std::int32_t has_binary = 0;
};
