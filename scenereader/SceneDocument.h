#pragma once
// The structure of a ".vnz" scene file as the reader gives it back: blocks
// that hold statements and nested blocks in file order, and statements that
// hold typed values. Tests and tools assert on this instead of on bytes.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace scenereader {

struct Block;

// The data of a raw array block, decoded from its little-endian bytes without
// conversion, so that every value survives bit for bit.
struct BinaryArray {
    char kind = 0;                // 'c' float triples, 'f' floats, 'i' int32, 'r' doubles
    uint32_t count = 0;           // scalars, not elements: three per float triple
    std::vector<float> floats;    // kinds 'c' and 'f'
    std::vector<int32_t> ints;    // kind 'i'
    std::vector<double> doubles;  // kind 'r'
};

enum class ValueKind {
    Number,        // 1, -1, 0.5000000000000000, 1e+38, nan
    String,        // a quoted string in any of its written forms
    Word,          // a bare word: on, off
    Tuple,         // an array element of several scalars: "1 2 3" in [ 1 2 3,4 5 6 ]
    TextArray,     // [ a,b,c ]
    Binary,        // [ marker count data ]
    Shader,        // an inline shader: "type" { parameters }
    ElementArray,  // "name" [ elements ],  (a statement of its own)
};

// How a string was written.
enum class StringForm {
    Quoted,  // "text"
    Hex,     // xX and two lower-case hex digits per byte
    Bytes,   // bX and two lower-case hex digits per byte (icons, blobs)
};

struct Value {
    ValueKind kind = ValueKind::Word;
    std::string text;                      // Number: as written; String: the decoded bytes; Word: itself
    double number = 0;                     // Number only
    StringForm form = StringForm::Quoted;  // String only
    std::vector<Value> items;              // Tuple: its scalars; TextArray, ElementArray: the elements
    BinaryArray binary;                    // Binary only
    std::shared_ptr<const Block> shader;   // Shader only: a block of kind "shader" named by its type
};

struct Statement {
    // Keyword form: the words joined by one blank ("reflection map", "set transform").
    // Parameter form: the decoded quoted name. A comment: the whole line.
    // "#print" and "#error" with their message as a string; "#modify" where
    // no camera follows it.
    std::string name;
    bool quotedName = false;   // parameter form: "name" value,
    bool boundShader = false;  // "name" ! value,
    bool comment = false;      // a line starting with "//" inside a block
    std::vector<Value> values;
    size_t line = 0;  // line of the statement's first byte, counting from 1

    // The values that are numbers, in order.
    std::vector<double> numbers() const;
    // The first inline shader among the values, or null.
    const Block* shader() const;
};

struct Block {
    std::string kind;                // "group", "object", "geometry", "shader"...; empty for the root
    std::vector<std::string> names;  // as written after the kind: decoded strings, or a number and a word
    bool defined = false;            // opened with "#define "
    bool modify = false;             // a camera opened after "#modify "
    size_t line = 0;
    std::vector<std::variant<Statement, Block>> items;  // in file order

    // The first name, or empty.
    std::string name() const;
    // The first statement of that name directly in this block, or null.
    const Statement* statement(std::string_view name) const;
    std::vector<const Statement*> statements(std::string_view name) const;
    // The first block of that kind directly in this block, or null.
    const Block* child(std::string_view kind) const;
    std::vector<const Block*> children(std::string_view kind) const;
    // Blocks of that kind at any depth below this one, in file order; inline
    // shaders are values, not blocks, and are not searched.
    std::vector<const Block*> descendants(std::string_view kind) const;
};

// A block as messages name it: object "part".
std::string describeBlock(const Block& block);

struct Document {
    std::vector<std::string> comments;  // the "//" lines outside blocks, header lines first
    Block root;                         // top-level statements and blocks
};

}  // namespace scenereader
