// The block statements of the scene file writer: groups, objects, geometry,
// the top-level blocks, transforms and materials.
#include "importers/sceneapi/nvxScene_api_file.h"

void nvxScene_api_file::open_block(const char* head, const char* name) {
    indented("%s", head);
    finish_block_head(name);
}

void nvxScene_api_file::finish_block_head(const char* name) {
    quoted(name);
    plain(" {\n");
    ++depth;
}

void nvxScene_api_file::close_block() {
    --depth;
    indented("}\n");
}

void nvxScene_api_file::save_keyword_form(bool keyword) {
    keyword_stack.push(keyword_form);
    keyword_form = keyword;
}

void nvxScene_api_file::restore_keyword_form() { keyword_form = keyword_stack.pop(); }

bool nvxScene_api_file::begin_group(const char* name, bool nested) {
    open_block(nested ? "\ngroup " : "\n#define group ", name);
    save_keyword_form(true);
    return true;
}

void nvxScene_api_file::end_group() {
    close_block();
    restore_keyword_form();
}

bool nvxScene_api_file::begin_object(const char* name, bool nested) {
    open_block(nested ? "object " : "#define object ", name);
    save_keyword_form(true);
    block_state = OBJECT_BLOCK;
    object_flags = 0;
    return true;
}

void nvxScene_api_file::end_object() {
    if (object_flags & OBJECT_INVISIBLE) indented("invisible on\n");
    close_block();
    restore_keyword_form();
    block_state = NO_BLOCK;
}

bool nvxScene_api_file::begin_geometry(const char* type) {
    if (skip_geometry) {
        ++depth;
    } else {
        open_block("geometry ", type);
    }
    save_keyword_form(false);
    return true;
}

void nvxScene_api_file::end_geometry() {
    close_block();
    restore_keyword_form();
    skip_geometry = false;
}

bool nvxScene_api_file::begin_animation(const char* type, const char* name) {
    indented("animation ");
    quoted(type);
    plain(" ");
    finish_block_head(name);
    save_keyword_form(false);
    return true;
}

void nvxScene_api_file::end_animation() {
    close_block();
    restore_keyword_form();
}

bool nvxScene_api_file::begin_load(const char* module) {
    open_block("load ", module);
    return true;
}

void nvxScene_api_file::end_load() { close_block(); }

// Options, camera and image blocks stand alone: while any of them or an
// object is open, another is refused and nothing is written.
bool nvxScene_api_file::begin_top_level_block(BlockState state, const char* head, const char* name) {
    if (block_state != NO_BLOCK) return false;
    capturing = false;
    if (name) {
        indented("%s ", head);
        finish_block_head(name);
    } else {
        indented("%s {\n", head);
        ++depth;
    }
    keyword_form = true;
    block_state = state;
    return true;
}

void nvxScene_api_file::end_top_level_block(BlockState state) {
    if (block_state == state) close_block();
    keyword_form = false;
    block_state = NO_BLOCK;
}

bool nvxScene_api_file::begin_options() { return begin_top_level_block(OPTIONS_BLOCK, "\noptions", nullptr); }

void nvxScene_api_file::end_options() { end_top_level_block(OPTIONS_BLOCK); }

bool nvxScene_api_file::begin_camera(const char* name) { return begin_top_level_block(CAMERA_BLOCK, "\ncamera", name); }

void nvxScene_api_file::end_camera() { end_top_level_block(CAMERA_BLOCK); }

bool nvxScene_api_file::begin_image() { return begin_top_level_block(IMAGE_BLOCK, "\nimage", nullptr); }

void nvxScene_api_file::end_image() { end_top_level_block(IMAGE_BLOCK); }

bool nvxScene_api_file::modify_camera(const char* name) {
    indented("#modify ");
    return begin_camera(name);
}

bool nvxScene_api_file::begin_output(const char* a, const char* b, const char* c) {
    indented("output ");
    quoted(a);
    plain(" ");
    quoted(b);
    plain(" ");
    finish_block_head(c);
    keyword_form = false;
    return true;
}

void nvxScene_api_file::end_output() {
    close_block();
    keyword_form = true;
}

bool nvxScene_api_file::begin_light(const char* name) {
    open_block("\nlight ", name);
    return true;
}

void nvxScene_api_file::end_light() { close_block(); }

bool nvxScene_api_file::begin_accel(const char* name) {
    open_block("\naccel ", name);
    save_keyword_form(false);
    return true;
}

void nvxScene_api_file::end_accel() {
    close_block();
    restore_keyword_form();
}

// Each of the sixteen values is narrowed to a 32-bit float before printing.
void nvxScene_api_file::print_matrix_statement(const char* word, const double m[16]) {
    indented("%s", word);
    for (int i = 0; i < 16; ++i) plain(" %g", static_cast<double>(static_cast<float>(m[i])));
    plain("\n");
}

void nvxScene_api_file::apply_transform(const double m[16]) { print_matrix_statement("transform", m); }

void nvxScene_api_file::set_transform(const double m[16]) { print_matrix_statement("set transform", m); }

void nvxScene_api_file::scale(const double& x, const double& y, const double& z) { indented("scale %g %g %g\n", x, y, z); }

void nvxScene_api_file::rotate(const double& x, const double& y, const double& z) { indented("rotate %g %g %g\n", x, y, z); }

void nvxScene_api_file::translate(const double& x, const double& y, const double& z) {
    indented("translate %g %g %g\n", x, y, z);
}

bool nvxScene_api_file::begin_matrix(const char* name) {
    open_block("#define matrix ", name);
    return true;
}

void nvxScene_api_file::end_matrix() { close_block(); }

bool nvxScene_api_file::begin_material(const char* name, bool nested) {
    open_block(nested ? "material " : "\n#define material ", name);
    return true;
}

bool nvxScene_api_file::use_material(const char* name) {
    indented("material ");
    quoted(name);
    plain("\n");
    return true;
}

void nvxScene_api_file::end_material() { close_block(); }
