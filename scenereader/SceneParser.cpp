#include "scenereader/SceneParser.h"

#include <algorithm>
#include <array>

#include "scenereader/SceneTokens.h"

namespace scenereader {

namespace {

// Deeper nesting than this is taken for garbage rather than risk the stack.
constexpr size_t maximumNesting = 256;

// A kind of block, the number of names after its kind word, and whether it
// opens plainly, after "#define ", or both.
struct BlockRule {
    std::string_view kind;
    size_t minimumNames;
    size_t maximumNames;
    bool plain;
    bool definable;
};

constexpr std::array<BlockRule, 14> blockRules{{
    {"group", 1, 1, true, true},
    {"object", 1, 1, true, true},
    {"geometry", 1, 1, true, false},
    {"animation", 2, 2, true, false},
    {"load", 1, 1, true, false},
    {"options", 0, 0, true, false},
    {"camera", 0, 1, true, false},
    {"image", 0, 0, true, false},
    {"output", 3, 3, true, false},
    {"light", 1, 1, true, false},
    {"accel", 1, 1, true, false},
    {"matrix", 1, 1, false, true},
    {"material", 1, 1, true, true},
    {"shader", 2, 2, false, true},
}};

const BlockRule* findRule(std::string_view kind) {
    auto found = std::find_if(blockRules.begin(), blockRules.end(),
                              [kind](const BlockRule& rule) { return rule.kind == kind; });
    return found == blockRules.end() ? nullptr : &*found;
}

// Names are quoted strings; a numbered shader definition has an id and an
// unquoted type instead.
bool namesFitRule(const BlockRule& rule, const std::vector<TokenKind>& kinds) {
    if (kinds.size() < rule.minimumNames || kinds.size() > rule.maximumNames) return false;
    if (std::all_of(kinds.begin(), kinds.end(), isStringToken)) return true;
    return rule.kind == "shader" && kinds[0] == TokenKind::Number && kinds[1] == TokenKind::Word;
}

std::string describeRule(const BlockRule& rule) {
    std::string count = std::to_string(rule.minimumNames);
    if (rule.maximumNames != rule.minimumNames) count += " or " + std::to_string(rule.maximumNames);
    std::string text = "\"" + std::string(rule.kind) + "\" with " + count + " quoted name";
    if (rule.maximumNames != 1) text += "s";
    if (rule.kind == "shader") text += ", or an id and a type,";
    return text + " before \"{\"";
}

std::string joinWords(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words) joined += (joined.empty() ? "" : " ") + word;
    return joined;
}

bool isOnOff(std::string_view word) { return word == "on" || word == "off"; }

}  // namespace

Document SceneParser::parse() {
    parseBody(document_.root, BodyEnd::Input);
    return std::move(document_);
}

void SceneParser::parseBody(Block& block, BodyEnd end) {
    for (;;) {
        cursor_.skipWhitespace();
        if (cursor_.atEnd()) {
            if (end == BodyEnd::Input) return;
            cursor_.fail("\"}\" to close " + describeBlock(block) + " opened at line " + std::to_string(block.line));
        }
        if (cursor_.peek() == '}') {
            if (end == BodyEnd::Input) cursor_.fail("a statement or a block (this \"}\" closes no open block)");
            cursor_.takeText(1);
            if (end == BodyEnd::BlockBrace) endLine();
            return;
        }
        parseItem(block);
    }
}

void SceneParser::parseItem(Block& block) {
    if (cursor_.startsWith("//")) return parseComment(block);
    if (cursor_.startsWith("#print ") || cursor_.startsWith("#error ")) return parseMessage(block);
    if (cursor_.startsWith("#modify")) return parseModify(block);
    if (cursor_.consume("#define ")) {
        if (!tryBlock(block, true, false)) cursor_.fail("a group, object, material, matrix or shader block after \"#define\"");
        return;
    }
    TokenKind kind = nextToken(cursor_);
    if (isStringToken(kind)) {
        block.items.emplace_back(parseParameterStatement());
    } else if (kind == TokenKind::Word) {
        if (!tryBlock(block, false, false)) block.items.emplace_back(parseKeywordStatement());
    } else {
        cursor_.fail("a statement, a block or \"}\"");
    }
}

bool SceneParser::tryBlock(Block& parent, bool defined, bool modify) {
    ByteCursor::Mark start = cursor_.mark();
    Block block;
    block.defined = defined;
    block.modify = modify;
    block.line = start.line;
    std::vector<TokenKind> nameKinds;
    if (!readBlockHead(block, nameKinds)) {
        cursor_.reset(start);
        return false;
    }
    const BlockRule& rule = *findRule(block.kind);
    if (!namesFitRule(rule, nameKinds)) cursor_.failAt(start, describeRule(rule));
    enterNesting(start);
    parseBody(block, BodyEnd::BlockBrace);
    leaveNesting();
    parent.items.emplace_back(std::move(block));
    return true;
}

bool SceneParser::readBlockHead(Block& block, std::vector<TokenKind>& nameKinds) {
    if (nextToken(cursor_) != TokenKind::Word) return false;
    block.kind = readWord(cursor_);
    const BlockRule* rule = findRule(block.kind);
    if (!rule || !(block.defined ? rule->definable : rule->plain)) return false;
    if (block.modify && block.kind != "camera") return false;
    for (cursor_.skipBlanks(); !cursor_.consume("{"); cursor_.skipBlanks()) {
        TokenKind token = nextToken(cursor_);
        if (!isStringToken(token) && token != TokenKind::Number && token != TokenKind::Word) return false;
        nameKinds.push_back(token);
        block.names.push_back(readScalar(cursor_).text);
    }
    cursor_.skipBlanks();
    return cursor_.consume("\n");
}

void SceneParser::parseComment(Block& block) {
    Statement statement;
    statement.line = cursor_.line();
    statement.name = cursor_.takeText(cursor_.restOfLine().size());
    statement.comment = true;
    endLine();
    if (&block == &document_.root) {
        document_.comments.push_back(std::move(statement.name));
    } else {
        block.items.emplace_back(std::move(statement));
    }
}

// "#print" or "#error" and a message between double quotes. The message was
// used as a format and may hold anything, quotes included, up to the line end.
void SceneParser::parseMessage(Block& block) {
    Statement statement;
    statement.line = cursor_.line();
    statement.name = cursor_.takeText(std::string_view("#print").size());
    cursor_.skipBlanks();
    std::string_view line = cursor_.restOfLine();
    if (line.size() < 2 || line.front() != '"' || line.back() != '"') {
        cursor_.fail("a message between double quotes up to the end of the line");
    }
    Value message;
    message.kind = ValueKind::String;
    message.text = line.substr(1, line.size() - 2);
    statement.values.push_back(std::move(message));
    cursor_.takeText(line.size());
    endLine();
    block.items.emplace_back(std::move(statement));
}

// "#modify " marks the camera head that follows it. Where no camera follows,
// the word stands as a statement of its own and the rest is read as usual.
void SceneParser::parseModify(Block& block) {
    size_t line = cursor_.line();
    cursor_.takeText(std::string_view("#modify").size());
    ByteCursor::Mark after = cursor_.mark();
    cursor_.skipWhitespace();
    if (tryBlock(block, false, true)) return;
    cursor_.reset(after);
    Statement statement;
    statement.name = "#modify";
    statement.line = line;
    block.items.emplace_back(std::move(statement));
}

// name words, then values, then the line end: "flags 32768", "reflection map
// "nvx_envmap" {...}", "render". Without other values a closing on or off is
// the value: "invisible on".
Statement SceneParser::parseKeywordStatement() {
    Statement statement;
    statement.line = cursor_.line();
    std::vector<std::string> words;
    while (nextToken(cursor_) == TokenKind::Word) {
        words.push_back(readWord(cursor_));
        cursor_.skipBlanks();
    }
    auto atLineEnd = [this] { return cursor_.atEnd() || cursor_.peek() == '\n'; };
    if (atLineEnd() && words.size() > 1 && isOnOff(words.back())) {
        Value onOff;
        onOff.text = std::move(words.back());
        words.pop_back();
        statement.values.push_back(std::move(onOff));
    }
    while (!atLineEnd()) {
        statement.values.push_back(parseValue());
        cursor_.skipBlanks();
    }
    statement.name = joinWords(words);
    endLine();
    return statement;
}

// A quoted name, then values up to ",": "\"diffuse\" 1 1 1,", "\"diffuse\" !
// \"texture_rgb\" {...},", "\"timestamps\" [\n...],".
Statement SceneParser::parseParameterStatement() {
    Statement statement;
    statement.line = cursor_.line();
    statement.quotedName = true;
    statement.name = readString(cursor_);
    cursor_.skipBlanks();
    if (cursor_.consume("!")) {
        statement.boundShader = true;
        cursor_.skipBlanks();
        statement.values.push_back(parseValue());
        cursor_.skipBlanks();
    }
    while (!statement.boundShader && cursor_.peek() != ',' && cursor_.peek() != '\n' && !cursor_.atEnd()) {
        statement.values.push_back(parseValue());
        cursor_.skipBlanks();
    }
    cursor_.expect(",", "\",\" to end the parameter \"" + statement.name + "\"");
    endLine();
    return statement;
}

void SceneParser::endLine() {
    cursor_.skipBlanks();
    if (!cursor_.atEnd()) cursor_.expect("\n", "the end of the line");
}

void SceneParser::enterNesting(ByteCursor::Mark start) {
    if (nesting_ >= maximumNesting) cursor_.failAt(start, "at most " + std::to_string(maximumNesting) + " levels of nesting");
    ++nesting_;
}

}  // namespace scenereader
