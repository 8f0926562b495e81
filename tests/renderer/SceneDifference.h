#pragma once
// Two scenes compared as the project's reader gives them: blocks by kind and
// names, statements by name and values, numbers and array data bit for bit.
#include <string>

#include "scenereader/SceneDocument.h"

namespace renderer::testing {

// Where the blocks first differ, as a path of blocks and what differs there;
// empty when they are equal.
std::string firstDifference(const scenereader::Block& a, const scenereader::Block& b);

// The first top-level group of a scene file: the model's group.
scenereader::Block modelGroupOf(const std::string& file);

}  // namespace renderer::testing
