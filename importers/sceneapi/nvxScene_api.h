#pragma once
// The streaming scene contract. Everything the exporter knows about a model
// reaches the renderer through this table of virtual operations: blocks are
// opened, filled with named typed attributes and closed. The renderer's
// run-time library implements the same table, so the order of the operations
// below is fixed: none may be added, moved or removed.
#include <cstdint>

// Names the finished text of an inline shader. Handed out by current_shader,
// owned by the scene object, valid until that object is destroyed.
struct ShaderHandle;

// Type codes of attribute values. The renderer's library understands these
// numbers, so they never change.
enum : int {
    ATTR_FLOAT3 = 1,        // three 32-bit floats
    ATTR_FLOAT4 = 2,        // four 32-bit floats
    ATTR_FLOAT = 3,         // one 32-bit float
    ATTR_DOUBLE = 4,        // one 64-bit float
    ATTR_DOUBLE3 = 5,       // three 64-bit floats
    ATTR_INT = 6,           // one signed 32-bit integer
    ATTR_BOOL = 7,          // one 32-bit integer, zero or not
    ATTR_MATRIX = 9,        // sixteen 64-bit floats
    ATTR_STRING = 10,       // the pointer is the zero-terminated string
    ATTR_STRING_REF = 13,   // the pointer points at a char pointer
    ATTR_FLOAT2 = 14,       // two 32-bit floats
    ATTR_FOV4 = 15,         // four 32-bit floats (a camera's four angles)
    ATTR_INT2 = 16,
    ATTR_INT3 = 17,
    ATTR_INT4 = 18,
    ATTR_ID = 23,           // one signed 32-bit integer
    ATTR_IGNORED_A = 8192,  // accepted and ignored
    ATTR_IGNORED_B = 16384, // accepted and ignored
    ATTR_ARRAY = 32768,     // flag: the value is an ArrayRecord of the base type
    ATTR_SHADER = 65536,    // a pointer to a ShaderHandle pointer
};

// The array codes in use.
enum : int {
    ATTR_FLOAT3_ARRAY = ATTR_ARRAY | ATTR_FLOAT3,         // count in triples
    ATTR_FLOAT4_ARRAY = ATTR_ARRAY | ATTR_FLOAT4,
    ATTR_FLOAT_ARRAY = ATTR_ARRAY | ATTR_FLOAT,
    ATTR_DOUBLE_ARRAY = ATTR_ARRAY | ATTR_DOUBLE,
    ATTR_DOUBLE3_ARRAY = ATTR_ARRAY | ATTR_DOUBLE3,
    ATTR_INT_ARRAY = ATTR_ARRAY | ATTR_INT,
    ATTR_BOOL_ARRAY = ATTR_ARRAY | ATTR_BOOL,
    ATTR_MATRIX_ARRAY = ATTR_ARRAY | ATTR_MATRIX,
    ATTR_STRING_ARRAY = ATTR_ARRAY | ATTR_STRING,         // elements are char pointers
    ATTR_STRING_REF_ARRAY = ATTR_ARRAY | ATTR_STRING_REF, // elements are char pointers
    ATTR_ID_ARRAY = ATTR_ARRAY | ATTR_ID,
};

// What the value pointer of an array attribute refers to. Elements are
// tightly packed; only the low 32 bits of the count are read.
struct ArrayRecord {
    const void* data;
    std::uint64_t count;
};

// Shader kinds of set_shader and set_shader_id; other numbers count as surface.
enum : int { SHADER_SURFACE = 0, SHADER_SHADOW = 1, SHADER_VOLUME = 2, SHADER_REFLECTION_MAP = 3 };

class nvxScene_api {
public:
    virtual ~nvxScene_api() = default;
    virtual void reserved_first() = 0;
    virtual bool connect(const char* host, int port, int attempts);
    virtual bool disconnect();
    virtual bool reserved_link();
    virtual bool begin_group(const char* name, bool nested) = 0;
    virtual void end_group() = 0;
    virtual bool begin_object(const char* name, bool nested) = 0;
    virtual void end_object() = 0;
    virtual bool begin_geometry(const char* type) = 0;
    virtual void end_geometry() = 0;
    virtual bool begin_animation(const char* type, const char* name) = 0;
    virtual void end_animation() = 0;
    virtual bool begin_load(const char* module) = 0;
    virtual void end_load() = 0;
    virtual bool begin_options() = 0;
    virtual void end_options() = 0;
    virtual bool begin_camera(const char* name) = 0;
    virtual void end_camera() = 0;
    virtual bool begin_image() = 0;
    virtual void end_image() = 0;
    virtual bool begin_output(const char* a, const char* b, const char* c) = 0;
    virtual void end_output() = 0;
    virtual bool begin_light(const char* name) = 0;
    virtual void end_light() = 0;
    virtual bool begin_accel(const char* name) = 0;
    virtual void end_accel() = 0;
    virtual void apply_transform(const double m[16]) = 0;
    virtual void set_transform(const double m[16]) = 0;
    virtual void scale(const double& x, const double& y, const double& z) = 0;
    virtual void rotate(const double& x, const double& y, const double& z) = 0;
    virtual void translate(const double& x, const double& y, const double& z) = 0;
    virtual bool begin_matrix(const char* name) = 0;
    virtual void end_matrix() = 0;
    virtual bool begin_material(const char* name, bool nested) = 0;
    virtual bool use_material(const char* name) = 0;
    virtual void end_material() = 0;
    virtual void set_shader(int kind, const ShaderHandle* shader) = 0;
    virtual void set_shader_id(int kind, int id) = 0;
    virtual bool begin_shader(const char* name, const char* type) = 0;
    virtual bool define_shader(const char* type, int id) = 0;
    virtual void end_shader() = 0;
    virtual ShaderHandle* current_shader() = 0;
    virtual void push_shader() = 0;
    virtual void pop_shader() = 0;
    virtual bool set_attribute(const char* name, int type, const void* value) = 0;
    virtual bool set_shader_attribute_id(const char* name, int id) = 0;
    virtual bool set_shader_attribute(const char* name, const ShaderHandle* shader) = 0;
    virtual bool begin_array(const char* name) = 0;
    virtual void end_array() = 0;
    virtual void add_array_value(int type, const void* value) = 0;
    virtual int reserved_count_a() = 0;
    virtual int reserved_count_b() = 0;
    virtual int reserved_count_c() = 0;
    virtual void declare_attribute(const char* type, const char* name) = 0;
    virtual void write_text(const char* format, ...) = 0;
    virtual void set_mode(int flags) = 0;
    virtual void set_version(unsigned version) = 0;
    virtual void reserved_notify_a() = 0;
    virtual void progress(const char* text, float fraction) = 0;
    virtual void set_icon(const void* data, int size) = 0;
    virtual void set_blob_attribute(const char* name, const void* data, int size) = 0;
    virtual void set_id(unsigned id) = 0;
    virtual void set_flags(unsigned flags) = 0;
    virtual bool reserved_flag_a();
    virtual bool render() = 0;
    virtual void print_message(const char* text) = 0;
    virtual void print_error(const char* text) = 0;
    virtual bool reserved_flag_b();
    virtual void reserved_notify_b() = 0;
    virtual bool reserved_flag_c();
    virtual bool modify_camera(const char* name) = 0;
};
