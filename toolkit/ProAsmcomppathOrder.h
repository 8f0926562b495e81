#pragma once
// The key order of component paths, for maps keyed by a path: shorter paths
// first, then by the ids in turn in signed comparison. The owner model plays
// no part, nor do the ids at or beyond the count, so a path read from a file
// matches the same path built by a walk of the assembly.
#include <algorithm>

#include "toolkit/ProToolkit.h"

namespace toolkit {

inline int pathDepth(const ProAsmcomppath& path) {
    return std::clamp(path.componentIdCount, 0, static_cast<int>(PRO_MAX_ASSEM_LEVEL));
}

}  // namespace toolkit

struct ProAsmcomppathLess {
    bool operator()(const ProAsmcomppath& a, const ProAsmcomppath& b) const {
        if (a.componentIdCount != b.componentIdCount) return a.componentIdCount < b.componentIdCount;
        for (int index = 0; index < toolkit::pathDepth(a); ++index) {
            if (a.componentIds[index] != b.componentIds[index]) return a.componentIds[index] < b.componentIds[index];
        }
        return false;
    }
};

// Two paths name the same component when count and ids agree.
inline bool sameComponentPath(const ProAsmcomppath& a, const ProAsmcomppath& b) {
    return !ProAsmcomppathLess()(a, b) && !ProAsmcomppathLess()(b, a);
}
