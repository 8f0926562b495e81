#pragma once
// The scene contract written to a ".vnz" stream: each operation appends a
// statement of the renderer's line-oriented, brace-structured text format,
// with arrays as raw binary blocks when binary_arrays is on.
//
// The implementation is split by role: nvxSceneFileOutput.cpp holds the
// writing primitives, nvxSceneFileBlocks.cpp the block statements,
// nvxSceneFileShaders.cpp the shaders, nvxSceneFileValues.cpp the printing of
// attribute values and arrays, nvxScene_api_file.cpp the rest.
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "importers/sceneapi/GrowingStack.h"
#include "importers/sceneapi/ShaderHandle.h"
#include "importers/sceneapi/nvxScene_api.h"
#include "platform/Compiler.h"

class nvxScene_api_file : public nvxScene_api {
public:
    // Bits of the mode word. Arrays go out as binary blocks while
    // MODE_BINARY_ARRAYS is set; MODE_NO_INDENT turns indentation off.
    static constexpr std::uint32_t MODE_BINARY_ARRAYS = 0x1;
    static constexpr std::uint32_t MODE_NO_INDENT = 0x400000;
    static constexpr std::uint32_t INITIAL_MODE = MODE_NO_INDENT | MODE_BINARY_ARRAYS;
    // The longest statement that comes out whole.
    static constexpr std::size_t STATEMENT_LIMIT = 1048575;

    // The stream is not owned. Sets the numeric locale to "C" for good: the
    // destructor restores the name that setlocale answered here, which is "C".
    nvxScene_api_file(FILE* stream, bool binary_arrays);
    nvxScene_api_file(const nvxScene_api_file&) = delete;
    nvxScene_api_file& operator=(const nvxScene_api_file&) = delete;
    ~nvxScene_api_file() override;

    // True once a write to the stream came out short. Nothing else reports it.
    bool any_write_failed() const { return write_failed; }

    void reserved_first() override;
    bool begin_group(const char* name, bool nested) override;
    void end_group() override;
    bool begin_object(const char* name, bool nested) override;
    void end_object() override;
    bool begin_geometry(const char* type) override;
    void end_geometry() override;
    bool begin_animation(const char* type, const char* name) override;
    void end_animation() override;
    bool begin_load(const char* module) override;
    void end_load() override;
    bool begin_options() override;
    void end_options() override;
    bool begin_camera(const char* name) override;
    void end_camera() override;
    bool begin_image() override;
    void end_image() override;
    bool begin_output(const char* a, const char* b, const char* c) override;
    void end_output() override;
    bool begin_light(const char* name) override;
    void end_light() override;
    bool begin_accel(const char* name) override;
    void end_accel() override;
    void apply_transform(const double m[16]) override;
    void set_transform(const double m[16]) override;
    void scale(const double& x, const double& y, const double& z) override;
    void rotate(const double& x, const double& y, const double& z) override;
    void translate(const double& x, const double& y, const double& z) override;
    bool begin_matrix(const char* name) override;
    void end_matrix() override;
    bool begin_material(const char* name, bool nested) override;
    bool use_material(const char* name) override;
    void end_material() override;
    void set_shader(int kind, const ShaderHandle* shader) override;
    void set_shader_id(int kind, int id) override;
    bool begin_shader(const char* name, const char* type) override;
    bool define_shader(const char* type, int id) override;
    void end_shader() override;
    ShaderHandle* current_shader() override;
    void push_shader() override;
    void pop_shader() override;
    bool set_attribute(const char* name, int type, const void* value) override;
    bool set_shader_attribute_id(const char* name, int id) override;
    bool set_shader_attribute(const char* name, const ShaderHandle* shader) override;
    bool begin_array(const char* name) override;
    void end_array() override;
    void add_array_value(int type, const void* value) override;
    int reserved_count_a() override;
    int reserved_count_b() override;
    int reserved_count_c() override;
    void declare_attribute(const char* type, const char* name) override;
    VANTREL_PRINTF_FORMAT(2, 3) void write_text(const char* format, ...) override;
    void set_mode(int flags) override;
    void set_version(unsigned version) override;
    void reserved_notify_a() override;
    void progress(const char* text, float fraction) override;
    void set_icon(const void* data, int size) override;
    void set_blob_attribute(const char* name, const void* data, int size) override;
    void set_id(unsigned id) override;
    void set_flags(unsigned flags) override;
    bool render() override;
    void print_message(const char* text) override;
    void print_error(const char* text) override;
    void reserved_notify_b() override;
    bool modify_camera(const char* name) override;

private:
    enum BlockState : std::int32_t { NO_BLOCK = 0, OPTIONS_BLOCK = 1, CAMERA_BLOCK = 2, IMAGE_BLOCK = 3, OBJECT_BLOCK = 4 };
    static constexpr std::uint32_t OBJECT_INVISIBLE = 16384;

    // Writing primitives (nvxSceneFileOutput.cpp). All do nothing without a
    // stream; while capturing, their text goes into current_handle.
    VANTREL_PRINTF_FORMAT(2, 3) void indented(const char* format, ...);
    void indentedv(const char* format, va_list arguments);
    VANTREL_PRINTF_FORMAT(2, 3) void plain(const char* format, ...);
    void plainv(const char* format, va_list arguments);
    void raw(const void* bytes, std::size_t size);
    void deliver(const char* text, std::size_t size);
    // A string in double quotes, or as "xX" and hex digits when it holds a
    // line break, a double quote or a byte of 128 or above. Printed at the
    // current depth when it opens a line, else with no indentation of its own.
    void quoted(const char* text, bool opens_line = false);
    // "bX" and two hex digits a byte.
    void byte_block(const void* data, int size);
    void handle_text(const ShaderHandle& handle);
    // An empty indented print: the blanks that start a line.
    void start_line();

    // Statement helpers.
    // A head, a quoted name and " {", then one level deeper; and back out.
    void open_block(const char* head, const char* name);
    void finish_block_head(const char* name);
    void close_block();
    void save_keyword_form(bool keyword);
    void restore_keyword_form();
    bool begin_top_level_block(BlockState state, const char* head, const char* name);
    void end_top_level_block(BlockState state);
    void print_matrix_statement(const char* word, const double m[16]);
    void print_message_line(const char* prefix, const char* text);
    void write_shader_keyword(int kind, bool trailing_blank);
    void push_shader_state();

    // Value printing (nvxSceneFileValues.cpp).
    bool is_known_type(int type) const;
    void print_value(int type, const void* value);
    void print_array(int type, const ArrayRecord& array);
    void print_text_array(int type, const ArrayRecord& array);
    void print_element_separator(int type);
    void print_binary_block(char kind, const void* values, std::uint32_t scalars);
    void collect_array_values(int type, const void* value);

    GrowingStack<std::int32_t> depth_stack;
    GrowingStack<ShaderHandle*> shader_pool;
    GrowingStack<ShaderHandle*> shader_stack;
    GrowingStack<bool> capture_stack;
    GrowingStack<bool> keyword_stack;
    bool capturing = false;
    ShaderHandle* current_handle = nullptr;
    FILE* stream;
    std::uint32_t object_flags = 0;
    std::int32_t depth = 0;
    std::int32_t array_count = 0;
    bool keyword_form = false;
    std::int32_t block_state = NO_BLOCK;
    bool binary_arrays;
    bool skip_geometry = false;
    bool write_failed = false;
    bool owns_stream = false;
    char array_kind = 0;
    std::unique_ptr<std::uint32_t[]> array_values;
    std::uint32_t array_value_count = 0;
    std::uint32_t array_value_capacity = 0;
    std::uint32_t mode = INITIAL_MODE;
    std::unique_ptr<char[]> format_buffer;
    std::unique_ptr<char[]> indent_buffer;
    std::string saved_locale;
    // Reused for the hex forms, so that a statement costs no allocation.
    std::string hex_scratch;
};
