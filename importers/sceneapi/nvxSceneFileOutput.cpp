// The writing primitives of the scene file writer: every byte of a scene file
// passes through one of these, to the stream or into the captured shader.
#include <algorithm>
#include <cstring>

#include "importers/sceneapi/nvxScene_api_file.h"

namespace {

constexpr std::size_t BUFFER_SIZE = nvxScene_api_file::STATEMENT_LIMIT + 1;

bool needsHexForm(const char* text) {
    for (const unsigned char* c = reinterpret_cast<const unsigned char*>(text); *c; ++c) {
        if (*c == '\n' || *c == '\r' || *c == '"' || *c >= 128) return true;
    }
    return false;
}

void appendHex(std::string& out, const char* prefix, const void* data, std::size_t size) {
    static constexpr char digits[] = "0123456789abcdef";
    out.assign(prefix);
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < size; ++i) {
        out.push_back(digits[bytes[i] >> 4]);
        out.push_back(digits[bytes[i] & 15]);
    }
}

// Copies text into out with `blanks` blanks at the start and after every line
// feed that more text follows; cut at the statement limit.
std::size_t indentInto(char* out, const char* text, std::size_t size, int blanks) {
    std::size_t used = 0;
    auto put = [&](char c) {
        if (used < nvxScene_api_file::STATEMENT_LIMIT) out[used++] = c;
    };
    for (int b = 0; b < blanks; ++b) put(' ');
    for (std::size_t i = 0; i < size; ++i) {
        put(text[i]);
        if (text[i] == '\n' && i + 1 < size) {
            for (int b = 0; b < blanks; ++b) put(' ');
        }
    }
    out[used] = '\0';
    return used;
}

}  // namespace

void nvxScene_api_file::deliver(const char* text, std::size_t size) {
    if (capturing && current_handle) {
        current_handle->append(text, size);
    } else if (size > 0 && std::fwrite(text, 1, size, stream) != size) {
        write_failed = true;
    }
}

void nvxScene_api_file::indented(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    indentedv(format, arguments);
    va_end(arguments);
}

void nvxScene_api_file::indentedv(const char* format, va_list arguments) {
    if (!stream) return;
    int printed = std::vsnprintf(format_buffer.get(), BUFFER_SIZE, format, arguments);
    if (printed < 0) return;
    std::size_t size = std::min<std::size_t>(static_cast<std::size_t>(printed), STATEMENT_LIMIT);
    if (mode & MODE_NO_INDENT) {
        deliver(format_buffer.get(), size);
        return;
    }
    size = indentInto(indent_buffer.get(), format_buffer.get(), size, depth);
    deliver(indent_buffer.get(), size);
}

void nvxScene_api_file::plain(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    plainv(format, arguments);
    va_end(arguments);
}

void nvxScene_api_file::plainv(const char* format, va_list arguments) {
    if (!stream) return;
    if (capturing && current_handle) {
        int printed = std::vsnprintf(format_buffer.get(), BUFFER_SIZE, format, arguments);
        if (printed < 0) return;
        current_handle->append(format_buffer.get(), std::min<std::size_t>(static_cast<std::size_t>(printed), STATEMENT_LIMIT));
    } else if (std::vfprintf(stream, format, arguments) < 0) {
        write_failed = true;
    }
}

void nvxScene_api_file::raw(const void* bytes, std::size_t size) {
    if (!stream) return;
    if (capturing && current_handle) {
        current_handle->append(static_cast<const char*>(bytes), size);
        current_handle->has_binary = 1;
    } else if (size > 0 && std::fwrite(bytes, 1, size, stream) != size) {
        write_failed = true;
    }
}

void nvxScene_api_file::quoted(const char* text, bool opens_line) {
    if (!text) text = "";
    if (needsHexForm(text)) {
        appendHex(hex_scratch, "xX", text, std::strlen(text));
        raw(hex_scratch.data(), hex_scratch.size());
        return;
    }
    if (opens_line) {
        indented("\"%s\"", text);
        return;
    }
    std::int32_t kept = depth;
    depth = 0;
    indented("\"%s\"", text);
    depth = kept;
}

void nvxScene_api_file::byte_block(const void* data, int size) {
    appendHex(hex_scratch, "bX", data, size > 0 ? static_cast<std::size_t>(size) : 0);
    raw(hex_scratch.data(), hex_scratch.size());
}

void nvxScene_api_file::handle_text(const ShaderHandle& handle) {
    if (handle.has_binary) {
        raw(handle.text, static_cast<std::size_t>(handle.length));
    } else {
        indented("%s", handle.text ? handle.text : "");
    }
}

void nvxScene_api_file::start_line() { indented("%s", ""); }
