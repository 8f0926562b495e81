#include "importers/sceneapi/ShaderHandle.h"

#include <cstring>

ShaderHandle::~ShaderHandle() { delete[] text; }

void ShaderHandle::append(const char* bytes, std::size_t size) {
    const auto addition = static_cast<std::int32_t>(size);
    if (length + 1 + addition >= capacity) {
        capacity = addition + (capacity + 256) * 2;
        char* grown = new char[static_cast<std::size_t>(capacity) + 2];
        if (length > 0) std::memcpy(grown, text, static_cast<std::size_t>(length));
        // Copy the addition before the old block goes: it may be a part of it.
        if (size > 0) std::memcpy(grown + length, bytes, size);
        delete[] text;
        text = grown;
    } else if (size > 0) {
        std::memmove(text + length, bytes, size);
    }
    length += addition;
    text[length] = '\0';
}
