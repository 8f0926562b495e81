#pragma once
// The reader of the host's motion file (".fra"): the header words "parts:"
// and "frames:", then, after the first "MaFrame", one record per component
// and frame: "Part:", the length of the path, the ids in parentheses and the
// twelve numbers of the position (rows 0 to 3, columns 0 to 2). The records
// append to the frame table by path, and at the end every component whose
// matrices are all alike leaves the table, so an entry means motion.
#include <cstdint>
#include <string>
#include <string_view>

#include "plugin/core/AnimationFrames.h"

// Reads the bytes of a motion file into `frames` and `frameCount`, appending
// to the sequences already there. There is no error and no message: whatever
// the bytes, the read ends. Bytes without "parts:" and then "frames:" leave
// both as they were.
void readFraFile(std::string_view bytes, AnimationFrameTable& frames, std::int32_t& frameCount);

// Reads the motion file at a wide path. Answers false, changing nothing, if
// the file can't be opened.
bool readFraFile(const std::u16string& path, AnimationFrameTable& frames, std::int32_t& frameCount);
