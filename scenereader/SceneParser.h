#pragma once
// The grammar of a scene file over a byte cursor: blocks and statements
// (SceneParser.cpp), and the values that statements carry (SceneValues.cpp).
#include <string>
#include <string_view>
#include <vector>

#include "scenereader/ByteCursor.h"
#include "scenereader/SceneDocument.h"
#include "scenereader/SceneTokens.h"

namespace scenereader {

class SceneParser {
public:
    explicit SceneParser(std::string_view bytes) : cursor_(bytes) {}

    // Reads the whole input; throws ParseError on malformed input.
    Document parse();

private:
    // How the body of a block ends.
    enum class BodyEnd {
        Input,        // the root: at the end of the input
        BlockBrace,   // "}" on a line of its own
        ShaderBrace,  // an inline shader's "}", followed by the end of its statement
    };

    void parseBody(Block& block, BodyEnd end);
    void parseItem(Block& block);
    // Reads a block head and body if one comes next; on anything else it
    // leaves the cursor where it was and answers false.
    bool tryBlock(Block& parent, bool defined, bool modify);
    // Reads "kind names... {" and the line end into the block, whose `defined`
    // and `modify` are set; answers false where no such head stands.
    bool readBlockHead(Block& block, std::vector<TokenKind>& nameKinds);
    void parseComment(Block& block);
    void parseMessage(Block& block);
    void parseModify(Block& block);
    Statement parseKeywordStatement();
    Statement parseParameterStatement();
    void endLine();
    // Counts one more level of nesting for the block or shader that starts there.
    void enterNesting(ByteCursor::Mark start);
    void leaveNesting() { --nesting_; }

    // SceneValues.cpp
    Value parseValue();
    Value parseInlineShader(std::string type, ByteCursor::Mark start);
    Value parseArray();
    void parseArrayElements(Value& array, size_t openLine);
    Value parseArrayElement(size_t openLine);

    ByteCursor cursor_;
    Document document_;
    size_t nesting_ = 0;
};

}  // namespace scenereader
