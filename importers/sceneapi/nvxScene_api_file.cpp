// Construction of the scene file writer and its one-line statements.
#include "importers/sceneapi/nvxScene_api_file.h"

#include <clocale>

nvxScene_api_file::nvxScene_api_file(FILE* stream, bool binary_arrays)
    : stream(stream),
      binary_arrays(binary_arrays),
      format_buffer(new char[STATEMENT_LIMIT + 1]),
      indent_buffer(new char[STATEMENT_LIMIT + 1]) {
    // Numbers in the file always use a decimal point, whatever the host's
    // locale. The name kept here is that of the new locale.
    const char* locale = std::setlocale(LC_NUMERIC, "C");
    saved_locale = locale ? locale : "C";
    // The bottom of the pool marks where freeing stops.
    shader_pool.push(nullptr);
}

nvxScene_api_file::~nvxScene_api_file() {
    if (owns_stream && stream) std::fclose(stream);
    std::setlocale(LC_NUMERIC, saved_locale.c_str());
    while (ShaderHandle* handle = shader_pool.pop()) delete handle;
}

void nvxScene_api_file::reserved_first() {}
void nvxScene_api_file::reserved_notify_a() {}
void nvxScene_api_file::reserved_notify_b() {}
int nvxScene_api_file::reserved_count_a() { return 10; }
int nvxScene_api_file::reserved_count_b() { return 10; }
int nvxScene_api_file::reserved_count_c() { return 0; }

void nvxScene_api_file::declare_attribute(const char* type, const char* name) {
    indented("attribute ");
    quoted(type);
    plain(" ");
    quoted(name);
    plain("\n");
}

void nvxScene_api_file::write_text(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    plainv(format, arguments);
    va_end(arguments);
}

void nvxScene_api_file::set_mode(int flags) {
    mode = static_cast<std::uint32_t>(flags);
    binary_arrays = (mode & MODE_BINARY_ARRAYS) != 0;
}

void nvxScene_api_file::set_version(unsigned version) {
    // The all-ones value asks for the newest format this writer knows.
    indented("version %d\n\n", version == ~0u ? 9 : static_cast<int>(version));
}

void nvxScene_api_file::progress(const char* text, float fraction) {
    indented("progress ");
    quoted(text);
    plain(" %.3f\n\n", static_cast<double>(fraction));
}

void nvxScene_api_file::set_icon(const void* data, int size) {
    indented("icon ");
    byte_block(data, size);
    plain("\n");
}

void nvxScene_api_file::set_blob_attribute(const char* name, const void* data, int size) {
    indented("%s ", name);
    byte_block(data, size);
    plain("\n");
}

void nvxScene_api_file::set_id(unsigned id) { indented("id %u\n", id); }

void nvxScene_api_file::set_flags(unsigned flags) { indented("flags %u\n", flags); }

bool nvxScene_api_file::render() {
    indented("\nrender\n");
    return true;
}

// The message is used as a format: a percent sign in it is interpreted.
void nvxScene_api_file::print_message_line(const char* prefix, const char* text) {
    indented("%s \"", prefix);
    write_text(text);
    plain("\"\n");
}

void nvxScene_api_file::print_message(const char* text) { print_message_line("#print", text); }

void nvxScene_api_file::print_error(const char* text) { print_message_line("#error", text); }
