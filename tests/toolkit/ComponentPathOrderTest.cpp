#include <gtest/gtest.h>

#include <initializer_list>
#include <map>

#include "toolkit/ProAsmcomppathOrder.h"

namespace {

ProAsmcomppath path(std::initializer_list<int> ids, ProMdl owner = nullptr) {
    ProAsmcomppath result{};
    result.ownerModel = owner;
    for (int id : ids) result.componentIds[result.componentIdCount++] = id;
    return result;
}

TEST(ComponentPathOrder, CountFirstThenSignedIdsIgnoringTheOwner) {
    ProAsmcomppathLess less;
    EXPECT_TRUE(less(path({999}), path({1, 1})));
    EXPECT_TRUE(less(path({-5}), path({3})));
    EXPECT_TRUE(less(path({7, 2, 9}), path({7, 3, 0})));
    EXPECT_FALSE(less(path({7, 3, 0}), path({7, 2, 9})));

    ProAsmcomppath fromWalk = path({12, 40}, reinterpret_cast<ProMdl>(0x10));
    fromWalk.componentIds[2] = 77;  // beyond the count
    EXPECT_TRUE(sameComponentPath(path({12, 40}), fromWalk));
    EXPECT_FALSE(sameComponentPath(path({12, 40}), path({12, 41})));

    std::map<ProAsmcomppath, int, ProAsmcomppathLess> frames{{path({3, 1, 1}), 1}, {path({-1}), 2}};
    frames[fromWalk] = 3;
    frames[path({12, 40})] += 10;
    EXPECT_EQ(frames.size(), 3u);
    EXPECT_EQ(frames.begin()->second, 2);
    EXPECT_EQ(frames.at(path({12, 40}, reinterpret_cast<ProMdl>(0x20))), 13);
}

}  // namespace
