#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/Environment.h"
#include "tests/toolkit/FakeHost.h"
#include "toolkit/CallStub.h"

// Stubs of each kind of miss value, made like the product's.
extern "C" {
ProError TestViewMatrixGet(int view, double* scale);
ProError TestXsecCreate(float depth, int* made);
void TestPolylineDraw(int* drawn);
ProBoolean TestIsModeler();
}
VANTREL_CALL_STUB(ProError, TestViewMatrixGet, (int view, double* scale), (view, scale), PRO_TK_GENERAL_ERROR)
VANTREL_CALL_STUB(ProError, TestXsecCreate, (float depth, int* made), (depth, made), PRO_TK_COMM_ERROR)
VANTREL_CALL_STUB(void, TestPolylineDraw, (int* drawn), (drawn), )
VANTREL_CALL_STUB(ProBoolean, TestIsModeler, (), (), PRO_B_FALSE)

namespace {

ProError hostViewMatrixGet(int context, int view, double* scale) {
    *scale = context + view + 0.5;
    return PRO_TK_NO_ERROR;
}
ProError hostXsecCreate(int context, float depth, int* made) {
    *made = context + static_cast<int>(depth * 100);
    return PRO_TK_NO_ERROR;
}
void hostPolylineDraw(int context, int* drawn) { *drawn = context; }
ProBoolean hostIsModeler(int context) { return context == fakehost::context ? PRO_B_TRUE : PRO_B_FALSE; }

std::vector<HostFunctionEntry> hostTable = {
    {reinterpret_cast<void*>(&hostIsModeler), "TestIsModeler_v"},
    {reinterpret_cast<void*>(&hostPolylineDraw), "TestPolylineDraw_v"},
    {reinterpret_cast<void*>(&hostViewMatrixGet), "TestViewMatrixGet_v"},
    {reinterpret_cast<void*>(&hostXsecCreate), "TestXsecCreate_v"},
};

TEST(CallStub, MissAnswersItsValueAndSearchesAgainUntilTheHostHasIt) {
    std::vector<HostFunctionEntry> empty;
    fakehost::install(empty);
    double scale = -1;
    int made = -1;
    int drawn = -1;
    platform::setEnvironmentVariable("VANTREL_TOOLKIT_DEBUG", "1");
    testing::internal::CaptureStderr();
    EXPECT_EQ(TestViewMatrixGet(2, &scale), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(TestViewMatrixGet(2, &scale), PRO_TK_GENERAL_ERROR);
    std::string report = "TestViewMatrixGet_v  :TestViewMatrixGet_v:  couldn't find pointer to ProE-side function\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), report + report) << "reported on every call";

    platform::removeEnvironmentVariable("VANTREL_TOOLKIT_DEBUG");
    testing::internal::CaptureStderr();
    EXPECT_EQ(TestXsecCreate(0.25f, &made), PRO_TK_COMM_ERROR);
    TestPolylineDraw(&drawn);
    EXPECT_EQ(TestIsModeler(), PRO_B_FALSE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the debug channel is off";
    EXPECT_EQ(scale + made + drawn, -3) << "nothing was called";

    fakehost::install(hostTable);
    EXPECT_EQ(TestViewMatrixGet(2, &scale), PRO_TK_NO_ERROR);
    EXPECT_EQ(scale, fakehost::context + 2.5);
    EXPECT_EQ(TestXsecCreate(0.25f, &made), PRO_TK_NO_ERROR);
    EXPECT_EQ(made, fakehost::context + 25);
    TestPolylineDraw(&drawn);
    EXPECT_EQ(drawn, fakehost::context);
    EXPECT_EQ(TestIsModeler(), PRO_B_TRUE);
}

TEST(HostErrorReport, ReportIsCutAt259Characters) {
    platform::setEnvironmentVariable("VANTREL_TOOLKIT_DEBUG", "1");
    testing::internal::CaptureStderr();
    toolkit::reportHostError("ProX_v", "%s", std::string(400, 'm').c_str());
    std::string report = testing::internal::GetCapturedStderr();
    platform::removeEnvironmentVariable("VANTREL_TOOLKIT_DEBUG");
    EXPECT_EQ(report.size(), 259u);
    EXPECT_EQ(report.substr(0, 20), "ProX_v  :ProX_v:  mm");
}

}  // namespace
