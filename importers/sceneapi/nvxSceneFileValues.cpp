// How the scene file writer prints attribute values: one value by its type
// code, arrays as text or as raw binary blocks, and element-by-element arrays.
#include <cmath>
#include <cstring>

#include "importers/sceneapi/nvxScene_api_file.h"

namespace {

// A float at or beyond the largest finite float, or not a number, stands as
// -1. Single doubles are not guarded; doubles in arrays are, at the same bound.
constexpr float FLOAT_BOUND = 3.4028235e38f;
constexpr double DOUBLE_BOUND = 3.4028234663852886e38;

double guarded(float value) { return std::isnan(value) || std::fabs(value) >= FLOAT_BOUND ? -1.0 : value; }

double guarded(double value) { return std::isnan(value) || std::fabs(value) >= DOUBLE_BOUND ? -1.0 : value; }

double widened(float value) { return static_cast<double>(value); }

double narrowed(double value) { return static_cast<double>(static_cast<float>(value)); }

template <typename T>
const T* as(const void* value) {
    return static_cast<const T*>(value);
}

// The letter that marks a binary block of an array code, with the number of
// scalars in one element; 0 where the code has no binary form.
char binaryKind(int type) {
    switch (type) {
        case ATTR_FLOAT3_ARRAY: return 'c';
        case ATTR_FLOAT_ARRAY: return 'f';
        case ATTR_INT_ARRAY:
        case ATTR_ID_ARRAY: return 'i';
        case ATTR_DOUBLE_ARRAY: return 'r';
        default: return 0;
    }
}

std::size_t scalarSize(char kind) { return kind == 'r' ? 8 : 4; }

}  // namespace

bool nvxScene_api_file::is_known_type(int type) const {
    switch (type) {
        case ATTR_FLOAT3: case ATTR_FLOAT4: case ATTR_FLOAT: case ATTR_DOUBLE: case ATTR_DOUBLE3:
        case ATTR_INT: case ATTR_BOOL: case ATTR_MATRIX: case ATTR_STRING: case ATTR_STRING_REF:
        case ATTR_FLOAT2: case ATTR_FOV4: case ATTR_INT2: case ATTR_INT3: case ATTR_INT4:
        case ATTR_ID: case ATTR_SHADER:
        case ATTR_FLOAT3_ARRAY: case ATTR_FLOAT4_ARRAY: case ATTR_FLOAT_ARRAY: case ATTR_DOUBLE_ARRAY:
        case ATTR_DOUBLE3_ARRAY: case ATTR_INT_ARRAY: case ATTR_BOOL_ARRAY: case ATTR_MATRIX_ARRAY:
        case ATTR_STRING_ARRAY: case ATTR_STRING_REF_ARRAY: case ATTR_ID_ARRAY:
            return true;
        default:
            return false;
    }
}

void nvxScene_api_file::print_value(int type, const void* value) {
    switch (type) {
        case ATTR_FLOAT3: {
            const float* f = as<float>(value);
            plain("%g %g %g", widened(f[0]), widened(f[1]), widened(f[2]));
            break;
        }
        case ATTR_FLOAT4:
        case ATTR_FOV4: {
            const float* f = as<float>(value);
            plain("%g %g %g %g", widened(f[0]), widened(f[1]), widened(f[2]), widened(f[3]));
            break;
        }
        case ATTR_FLOAT: plain("%g", guarded(*as<float>(value))); break;
        case ATTR_DOUBLE: plain("%16.16f", *as<double>(value)); break;
        case ATTR_DOUBLE3: {
            const double* d = as<double>(value);
            plain("%g %g %g", d[0], d[1], d[2]);
            break;
        }
        case ATTR_INT:
        case ATTR_ID: plain("%d", *as<std::int32_t>(value)); break;
        case ATTR_BOOL: plain("%s", *as<std::int32_t>(value) ? "on" : "off"); break;
        case ATTR_MATRIX: {
            const double* m = as<double>(value);
            for (int i = 0; i < 16; ++i) plain(i ? " %g" : "%g", narrowed(m[i]));
            break;
        }
        case ATTR_STRING: quoted(as<char>(value)); break;
        case ATTR_STRING_REF: quoted(*as<const char*>(value)); break;
        case ATTR_FLOAT2: {
            const float* f = as<float>(value);
            plain("%g %g", widened(f[0]), widened(f[1]));
            break;
        }
        case ATTR_INT2: {
            const std::int32_t* n = as<std::int32_t>(value);
            plain("%d %d", n[0], n[1]);
            break;
        }
        case ATTR_INT3: {
            const std::int32_t* n = as<std::int32_t>(value);
            plain("%d %d %d", n[0], n[1], n[2]);
            break;
        }
        case ATTR_INT4: {
            const std::int32_t* n = as<std::int32_t>(value);
            plain("%d %d %d %d", n[0], n[1], n[2], n[3]);
            break;
        }
        case ATTR_SHADER: {
            const ShaderHandle* handle = *as<const ShaderHandle*>(value);
            if (!handle) break;
            std::int32_t kept = depth;
            depth = 2;
            handle_text(*handle);
            depth = kept;
            break;
        }
        default:
            if (is_known_type(type)) print_array(type, *as<ArrayRecord>(value));
            break;
    }
}

bool nvxScene_api_file::set_attribute(const char* name, int type, const void* value) {
    if (!is_known_type(type)) return true;
    if (type == ATTR_ID) {
        quoted(name, true);
        plain(" %d,\n", *as<std::int32_t>(value));
    }
    const bool keyword = keyword_form;
    if (keyword) {
        indented("%s ", name);
    } else {
        quoted(name, true);
        plain(" ");
    }
    print_value(type, value);
    plain(keyword ? "\n" : ",\n");
    return true;
}

void nvxScene_api_file::print_array(int type, const ArrayRecord& array) {
    if (binary_arrays && binaryKind(type)) {
        const char kind = binaryKind(type);
        const auto count = static_cast<std::uint32_t>(array.count);
        plain("[ ");
        print_binary_block(kind, array.data, kind == 'c' ? count * 3 : count);
        plain("] ");
        return;
    }
    print_text_array(type, array);
}

// A binary block is the marker 01 02 03 and the kind letter, the number of
// scalars, and the scalars as they lie in memory: no copy, no formatting.
void nvxScene_api_file::print_binary_block(char kind, const void* values, std::uint32_t scalars) {
    const unsigned char marker[4] = {1, 2, 3, static_cast<unsigned char>(kind)};
    raw(marker, sizeof marker);
    raw(&scalars, sizeof scalars);
    raw(values, scalars * scalarSize(kind));
}

void nvxScene_api_file::print_text_array(int type, const ArrayRecord& array) {
    const auto count = static_cast<std::uint32_t>(array.count);
    plain("[ ");
    for (std::uint32_t i = 0; i < count; ++i) {
        const char* end = i + 1 < count ? "," : " ";
        switch (type) {
            case ATTR_FLOAT3_ARRAY: {
                const float* f = as<float>(array.data) + 3 * std::size_t{i};
                plain("%g %g %g%s", widened(f[0]), widened(f[1]), widened(f[2]), end);
                break;
            }
            case ATTR_FLOAT4_ARRAY: {
                const float* f = as<float>(array.data) + 4 * std::size_t{i};
                plain("%g %g %g %g%s", widened(f[0]), widened(f[1]), widened(f[2]), widened(f[3]), end);
                break;
            }
            case ATTR_FLOAT_ARRAY: plain("%g%s", guarded(as<float>(array.data)[i]), end); break;
            case ATTR_DOUBLE_ARRAY: plain("%16.16f%s", guarded(as<double>(array.data)[i]), end); break;
            case ATTR_DOUBLE3_ARRAY: {
                const double* d = as<double>(array.data) + 3 * std::size_t{i};
                plain("%g %g %g%s", d[0], d[1], d[2], end);
                break;
            }
            case ATTR_INT_ARRAY:
            case ATTR_ID_ARRAY: plain("%d%s", as<std::int32_t>(array.data)[i], end); break;
            case ATTR_BOOL_ARRAY: plain("%d%s", as<std::int32_t>(array.data)[i] ? 1 : 0, end); break;
            case ATTR_MATRIX_ARRAY: {
                // One matrix to a line, doubles as they stand.
                const double* m = as<double>(array.data) + 16 * std::size_t{i};
                start_line();
                for (int k = 0; k < 16; ++k) plain("%g ", m[k]);
                plain(i + 1 < count ? ",\n" : "\n");
                continue;
            }
            case ATTR_STRING_ARRAY:
            case ATTR_STRING_REF_ARRAY:
                // One string to a line.
                start_line();
                quoted(as<const char*>(array.data)[i]);
                plain("%s\n", end);
                continue;
            default: break;
        }
        if (i >= 1 && i % 8 == 0) {
            plain("\n");
            start_line();
        }
    }
    plain("] ");
}

bool nvxScene_api_file::begin_array(const char* name) {
    array_count = 0;
    quoted(name, true);
    plain(" [\n");
    ++depth;
    start_line();
    array_value_count = 0;
    return true;
}

// Floats, float triples and integers are gathered while binary_arrays is on
// and go out as one block at end_array.
void nvxScene_api_file::collect_array_values(int type, const void* value) {
    const std::uint32_t scalars = type == ATTR_FLOAT3 ? 3 : 1;
    if (array_value_count + scalars > array_value_capacity) {
        const std::uint32_t capacity = array_value_count + array_value_capacity + 65536;
        std::unique_ptr<std::uint32_t[]> grown(new std::uint32_t[capacity]);
        if (array_value_count) std::memcpy(grown.get(), array_values.get(), array_value_count * sizeof(std::uint32_t));
        array_values = std::move(grown);
        array_value_capacity = capacity;
    }
    std::memcpy(array_values.get() + array_value_count, value, scalars * sizeof(std::uint32_t));
    array_value_count += scalars;
    array_kind = type == ATTR_FLOAT3 ? 'c' : type == ATTR_FLOAT ? 'f' : 'i';
}

void nvxScene_api_file::add_array_value(int type, const void* value) {
    if (binary_arrays && (type == ATTR_FLOAT3 || type == ATTR_FLOAT || type == ATTR_INT)) {
        collect_array_values(type, value);
        return;
    }
    print_element_separator(type);
    print_value(type, value);
    ++array_count;
}

// Float triples go two to a line, everything else six.
void nvxScene_api_file::print_element_separator(int type) {
    if (array_count == 0) return;
    if ((type == ATTR_FLOAT3 && array_count % 2 == 0) || array_count % 6 == 0) {
        plain(",\n");
        start_line();
    } else {
        plain(", ");
    }
}

void nvxScene_api_file::end_array() {
    if (binary_arrays && array_value_count > 0) {
        if (array_kind == 'c' || array_kind == 'f' || array_kind == 'i') {
            print_binary_block(array_kind, array_values.get(), array_value_count);
        }
        array_value_count = 0;
    }
    plain(" ],\n");
    --depth;
}
