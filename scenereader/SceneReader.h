#pragma once
// The project's reader of ".vnz" scene files, for tests and tools: it turns
// the bytes of a scene into blocks, statements and values (SceneDocument.h)
// so that callers can assert on structure instead of on bytes.
//
// It reads both attribute forms (keyword "name value" and parameter
// "\"name\" value,"), strings in the quoted, xX and bX forms, inline shaders,
// text arrays, element arrays, and binary array blocks, which it reads by
// their count and never by searching for the closing bracket. Indentation
// and empty lines are accepted anywhere between statements.
#include <string>
#include <string_view>

#include "scenereader/ParseError.h"
#include "scenereader/SceneDocument.h"

namespace scenereader {

// Throws ParseError on malformed input.
Document parseScene(std::string_view bytes);

// The path is UTF-8. Throws std::runtime_error if the file can't be read,
// and ParseError, naming the file, if it is malformed.
Document readSceneFile(const std::string& path);

}  // namespace scenereader
