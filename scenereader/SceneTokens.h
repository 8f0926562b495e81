#pragma once
// The smallest pieces of a scene file: strings in their three written forms,
// numbers, bare words, and raw binary array blocks.
#include <string>
#include <string_view>

#include "scenereader/ByteCursor.h"
#include "scenereader/SceneDocument.h"

namespace scenereader {

enum class TokenKind {
    End,        // no more input
    Quoted,     // "text"
    Hex,        // xX6162
    Bytes,      // bX0102
    Number,     // anything that reads whole as a number, "nan" and "inf" included
    Word,       // starts with a letter or an underscore
    Other,      // punctuation, a binary marker, garbage
};

// What comes next, without consuming it.
TokenKind nextToken(const ByteCursor& cursor);
bool isStringToken(TokenKind kind);

// A string in the quoted or the xX form, decoded.
std::string readString(ByteCursor& cursor);
// A bare word.
std::string readWord(ByteCursor& cursor);
// A number, a string in any form, or a word.
Value readScalar(ByteCursor& cursor);
// A binary block from its marker on: four marker bytes, a little-endian
// count of scalars, and the data, read by the count.
BinaryArray readBinaryArray(ByteCursor& cursor);

}  // namespace scenereader
