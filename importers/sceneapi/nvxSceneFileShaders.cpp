// Shaders in the scene file writer. A named or numbered shader is written in
// place as a definition; an inline shader is captured into a ShaderHandle and
// reaches the file only where the handle is attached.
#include "importers/sceneapi/nvxScene_api_file.h"

namespace {

const char* const SHADER_KEYWORDS[] = {"surface", "shadow", "volume", "reflection map"};
constexpr int SHADER_KINDS = 4;

}  // namespace

// Unknown kinds fall back to surface with a remark. The fallback word keeps
// its blank even where the known words have none.
void nvxScene_api_file::write_shader_keyword(int kind, bool trailing_blank) {
    if (kind < 0 || kind >= SHADER_KINDS) {
        indented("// assuming surface shader\n");
        indented("surface ");
        return;
    }
    indented(trailing_blank ? "%s " : "%s", SHADER_KEYWORDS[kind]);
}

void nvxScene_api_file::set_shader(int kind, const ShaderHandle* shader) {
    if (!shader) return;
    write_shader_keyword(kind, true);
    handle_text(*shader);
    plain("\n");
}

void nvxScene_api_file::set_shader_id(int kind, int id) {
    write_shader_keyword(kind, false);
    plain(" %d\n", id);
}

void nvxScene_api_file::push_shader_state() {
    capture_stack.push(capturing);
    shader_stack.push(current_handle);
    keyword_stack.push(keyword_form);
    keyword_form = false;
}

bool nvxScene_api_file::begin_shader(const char* name, const char* type) {
    if (name) {
        indented("#define shader ");
        quoted(name);
        plain(" ");
        finish_block_head(type);
        push_shader_state();
        capturing = false;
        return true;
    }
    push_shader_state();
    auto* handle = new ShaderHandle;
    shader_pool.push(handle);
    current_handle = handle;
    capturing = true;
    depth_stack.push(depth);
    depth = 0;
    finish_block_head(type);
    return true;
}

bool nvxScene_api_file::define_shader(const char* type, int id) {
    indented("#define shader %d %s {\n", id, type);
    ++depth;
    push_shader_state();
    capturing = false;
    return true;
}

void nvxScene_api_file::end_shader() {
    --depth;
    if (capturing) {
        indented("}");
        depth = depth_stack.pop();
    } else {
        indented("}\n");
    }
    keyword_form = keyword_stack.pop();
    // The handle stays current, so that it can still be taken after the end.
    shader_stack.pop();
    capturing = capture_stack.pop();
}

ShaderHandle* nvxScene_api_file::current_shader() { return current_handle; }

void nvxScene_api_file::push_shader() { shader_stack.push(current_handle); }

void nvxScene_api_file::pop_shader() { current_handle = shader_stack.pop(); }

bool nvxScene_api_file::set_shader_attribute_id(const char* name, int id) {
    quoted(name, true);
    plain(" ! %d,\n", id);
    return true;
}

bool nvxScene_api_file::set_shader_attribute(const char* name, const ShaderHandle* shader) {
    quoted(name, true);
    plain(" ! ");
    if (shader) handle_text(*shader);
    plain(",\n");
    return true;
}
