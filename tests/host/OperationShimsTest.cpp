#include "host/HostError.h"
#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

int typeCalls(const host::Session& session) { return int(session.calls().count(host::HostOperation::ProMdlTypeGet)); }

TEST_F(HostOperations, ShimsCountEachCallPerOperationAndKeepTheLast) {
    host::Model& model = session().addModel(part(u"p"));
    int type = 0;
    ProMdlName name;
    host::shims::ProMdlTypeGet(context, handle(model), &type);
    host::shims::ProMdlNameGet(context, handle(model), name);
    host::shims::ProMdlTypeGet(context, nullptr, &type);
    EXPECT_EQ(typeCalls(session()), 2);
    EXPECT_EQ(session().calls().count(host::HostOperation::ProMdlNameGet), 1u);
    EXPECT_EQ(session().calls().total(), 3u);
    ASSERT_TRUE(session().calls().last());
    EXPECT_EQ(host::operationName(session().calls().last()->operation), "ProMdlTypeGet");
    EXPECT_EQ(session().calls().last()->call, 2u);
    // Without the session's context nothing is counted.
    EXPECT_EQ(host::shims::ProMdlTypeGet(context + 1, handle(model), &type), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(host::shims::ProVerstampEqual(context + 1, {}, {}), PRO_B_FALSE);
    EXPECT_EQ(session().calls().total(), 3u);
}

TEST_F(HostOperations, AFaultAnswersItsStatusAtTheNthCallAndLeavesTheOutputAlone) {
    host::Model& model = session().addModel(part(u"p"));
    session().faults().add({"ProMdlTypeGet", 2, nullptr, PRO_TK_E_NOT_FOUND});
    std::vector<int> statuses, types;
    for (int call = 0; call < 3; ++call) {
        int type = -9;
        statuses.push_back(host::shims::ProMdlTypeGet(context, handle(model), &type));
        types.push_back(type);
    }
    EXPECT_EQ(statuses, (std::vector<int>{PRO_TK_NO_ERROR, PRO_TK_E_NOT_FOUND, PRO_TK_NO_ERROR}));
    EXPECT_EQ(types, (std::vector<int>{PRO_MDL_PART, -9, PRO_MDL_PART}));
    EXPECT_EQ(typeCalls(session()), 3) << "a faulted call is counted too";
    EXPECT_TRUE(log().empty());
}

TEST_F(HostOperations, AFaultByHandleAnswersOnlyCallsOnThatHandle) {
    host::Model& first = session().addModel(part(u"a"));
    host::Model& second = session().addModel(assembly(u"b"));
    session().faults().add({"ProMdlTypeGet", 0, handle(second)});
    int type = 0;
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(host::shims::ProMdlTypeGet(context, handle(first), &type), PRO_TK_NO_ERROR);
        EXPECT_EQ(host::shims::ProMdlTypeGet(context, handle(second), &type), PRO_TK_GENERAL_ERROR);
        EXPECT_EQ(type, PRO_MDL_PART);
    }
    // Only the operation named fails on that handle.
    ProMdlName name;
    EXPECT_EQ(host::shims::ProMdlNameGet(context, handle(second), name), PRO_TK_NO_ERROR);
    session().faults().clear();
    EXPECT_EQ(host::shims::ProMdlTypeGet(context, handle(second), &type), PRO_TK_NO_ERROR);
    EXPECT_THROW(session().faults().add({"ProNoSuchThing"}), host::HostError);
}

}  // namespace
