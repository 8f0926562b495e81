#pragma once
// The frame table of a recorded motion: for each moving component, keyed by
// its path of ids from the top assembly, the host's matrices frame by frame.
// Shorter paths sort first, then the ids in turn; the owner model plays no
// part, so a path read from a motion file finds the same component as a path
// built by the walk over the assembly.
#include <array>
#include <map>
#include <vector>

#include "toolkit/ProAsmcomppathOrder.h"
#include "toolkit/ProToolkit.h"

// A host matrix that can be kept in a container: 4 rows of 4 doubles, row
// vectors, translation in row 3.
using FrameMatrix = std::array<std::array<double, 4>, 4>;

// The matrices of one component in the order of the file's records.
using FrameSequence = std::vector<FrameMatrix>;

using AnimationFrameTable = std::map<ProAsmcomppath, FrameSequence, ProAsmcomppathLess>;
