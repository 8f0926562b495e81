// The C boundary: what a callback throws never unwinds through the host.
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "toolkit/HostCallback.h"

namespace {

// A host's visit as the host runs it: an action answer other than 0 ends it.
// Marked noexcept, so an exception reaching it would end the test process.
ProError hostVisit(const std::vector<int>& items, ProError (*action)(int, ProAppData), ProAppData data) noexcept {
    for (int item : items)
        if (ProError answer = action(item, data); answer != PRO_TK_NO_ERROR) return answer;
    return PRO_TK_NO_ERROR;
}

ProError collectOrThrowAtThree(int item, ProAppData data) {
    return toolkit::guardVisit([&] {
        if (item == 3) throw std::runtime_error("item 3 can't be read");
        static_cast<std::vector<int>*>(data)->push_back(item);
        return PRO_TK_NO_ERROR;
    });
}

TEST(HostCallback, AVisitFailureStopsTheVisitAndIsRethrownAfterIt) {
    std::vector<int> seen;
    EXPECT_EQ(hostVisit({1, 2, 3, 4}, collectOrThrowAtThree, &seen), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(seen, (std::vector<int>{1, 2}));
    EXPECT_THROW(toolkit::rethrowVisitFailure(), std::runtime_error);
    EXPECT_NO_THROW(toolkit::rethrowVisitFailure()) << "a failure is rethrown once";
}

TEST(HostCallback, AnEntryReportsItsFailureAnswersAndForgetsWhatNoOneRethrew) {
    std::vector<int> seen;
    ::testing::internal::CaptureStderr();
    int answer = toolkit::guardEntry("Vantrel Plugin Export", 7, [&] {
        hostVisit({3}, collectOrThrowAtThree, &seen);  // its failure is never rethrown
        throw std::runtime_error("could not open file: \"/x.vnz\"");
        return 0;
    });
    EXPECT_EQ(answer, 7);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Vantrel Plugin Export: could not open file: \"/x.vnz\"\n");
    EXPECT_NO_THROW(toolkit::rethrowVisitFailure()) << "the next entry starts clean";
}

}  // namespace
