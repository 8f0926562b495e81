// The values of statements: scalars, inline shaders and the three array forms.
#include <memory>

#include "scenereader/SceneParser.h"
#include "scenereader/SceneTokens.h"

namespace scenereader {

Value SceneParser::parseValue() {
    if (cursor_.peek() == '[') return parseArray();
    ByteCursor::Mark start = cursor_.mark();
    Value value = readScalar(cursor_);
    bool opensShader = value.kind == ValueKind::String && value.form != StringForm::Bytes && cursor_.startsWith(" {\n");
    if (opensShader) return parseInlineShader(std::move(value.text), start);
    return value;
}

// The text of an inline shader stands where it is used: its type, " {", its
// parameters, and a "}" that the using statement's own end follows.
Value SceneParser::parseInlineShader(std::string type, ByteCursor::Mark start) {
    cursor_.takeText(std::string_view(" {\n").size());
    auto shader = std::make_shared<Block>();
    shader->kind = "shader";
    shader->names.push_back(std::move(type));
    shader->line = start.line;
    enterNesting(start);
    parseBody(*shader, BodyEnd::ShaderBrace);
    leaveNesting();
    Value value;
    value.kind = ValueKind::Shader;
    value.shader = std::move(shader);
    return value;
}

// "[ " and a binary block, "[ " and text elements, or "[" and a line feed for
// an element array, which may hold text elements or binary blocks.
Value SceneParser::parseArray() {
    size_t openLine = cursor_.line();
    Value array;
    if (cursor_.consume("[\n")) {
        array.kind = ValueKind::ElementArray;
        parseArrayElements(array, openLine);
        return array;
    }
    cursor_.expect("[ ", "\"[ \", or \"[\" and a line feed, to open an array");
    if (cursor_.peek() != '\x01') {
        array.kind = ValueKind::TextArray;
        parseArrayElements(array, openLine);
        return array;
    }
    array.kind = ValueKind::Binary;
    array.binary = readBinaryArray(cursor_);
    cursor_.expect("]", "\"]\" right after the " + std::to_string(array.binary.count) + " values of the binary array");
    return array;
}

void SceneParser::parseArrayElements(Value& array, size_t openLine) {
    for (;;) {
        cursor_.skipWhitespace();
        if (cursor_.consume("]")) return;
        if (array.kind == ValueKind::ElementArray && cursor_.peek() == '\x01') {
            Value block;
            block.kind = ValueKind::Binary;
            block.binary = readBinaryArray(cursor_);
            array.items.push_back(std::move(block));
        } else {
            array.items.push_back(parseArrayElement(openLine));
        }
    }
}

// Scalars up to a "," or the closing "]": one scalar is the element itself,
// several make a tuple.
Value SceneParser::parseArrayElement(size_t openLine) {
    Value element;
    element.kind = ValueKind::Tuple;
    for (;;) {
        if (cursor_.atEnd()) cursor_.fail("\"]\" to close the array opened at line " + std::to_string(openLine));
        element.items.push_back(readScalar(cursor_));
        cursor_.skipWhitespace();
        if (cursor_.consume(",") || cursor_.peek() == ']') break;
    }
    if (element.items.size() == 1) return std::move(element.items.front());
    return element;
}

}  // namespace scenereader
