#include <vector>

#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

ProError passOverSecond(ProSimprep* simprep, ProAppData) { return simprep->id == 2 ? PRO_TK_CONTINUE : 0; }

ProError collectRepresentation(ProSimprep* simprep, ProError, ProAppData data) {
    static_cast<std::vector<ProSimprep>*>(data)->push_back(*simprep);
    return PRO_TK_NO_ERROR;
}

ProError collectItem(ProSimprepitem* item, ProError, ProAppData data) {
    static_cast<std::vector<ProSimprepitem>*>(data)->push_back(*item);
    return PRO_TK_NO_ERROR;
}

class Representations : public HostOperations {
protected:
    Representations() : model(session().addModel(assembly(u"top"))) {
        addRepresentation(model, -1, u"Master");
        host::Representation& light = addRepresentation(model, 2, u"Light", 1);
        light.items = {representationItem({10, 20}, 3), representationItem({}, 1)};
        light.items[1].componentIdCount = -1;
        addRepresentation(model, 3, u"Broken");
    }

    host::Model& model;
};

TEST_F(Representations, VisitGoesThroughAllWithOrWithoutAFilter) {
    std::vector<ProSimprep> met;
    EXPECT_EQ(host::shims::ProSolidSimprepVisit(context, handle(model), nullptr, collectRepresentation, &met), 0);
    ASSERT_EQ(met.size(), 3u);
    EXPECT_EQ(met[0].id, -1);
    EXPECT_EQ(met[0].owner, handle(model));
    EXPECT_EQ(met[0].type, PRO_ITEM_SIMPREP);
    met.clear();
    host::shims::ProSolidSimprepVisit(context, handle(model), passOverSecond, collectRepresentation, &met);
    EXPECT_EQ(met.size(), 2u);
    EXPECT_EQ(met[1].id, 3);
}

TEST_F(Representations, SelectFollowsTheScriptOrIsCancelled) {
    session().script().chooseRepresentation(u"Light");
    session().script().cancelRepresentation();
    session().script().chooseRepresentation(u"Heavy");
    ProSimprep chosen{};
    EXPECT_EQ(host::shims::ProSimprepSelect(context, handle(model), &chosen), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen.id, 2);
    EXPECT_EQ(host::shims::ProSimprepSelect(context, handle(model), &chosen), PRO_TK_USER_ABORT);
    EXPECT_EQ(host::shims::ProSimprepSelect(context, handle(model), &chosen), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(host::shims::ProSimprepSelect(context, handle(model), &chosen), PRO_TK_GENERAL_ERROR) << "unscripted";
    ASSERT_EQ(log().size(), 2u);
    EXPECT_EQ(log()[0], "ProSimprepSelect: the script chose the representation \"Heavy\", which \"top\" doesn't have");
    EXPECT_EQ(log()[1],
              "the plug-in asked for a representation (\"a simplified representation of top\") but the "
              "script has no answer for it");
}

TEST_F(Representations, DataHoldsTheDefaultActionAndItemsUntilFreed) {
    ProSimprep light{PRO_ITEM_SIMPREP, 2, handle(model)};
    ProSimprepdata* data = nullptr;
    ASSERT_EQ(host::shims::ProSimprepdataGet(context, &light, &data), PRO_TK_NO_ERROR);
    EXPECT_EQ(data->defaultAction, 1);
    std::vector<ProSimprepitem> items;
    EXPECT_EQ(host::shims::ProSimprepdataitemsVisit(context, data, collectItem, &items), 0);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].componentIdCount, 2);
    EXPECT_EQ(items[0].componentIds[1], 20);
    EXPECT_EQ(items[0].action.type, 3);
    EXPECT_EQ(items[1].componentIdCount, -1);
    EXPECT_EQ(session().arrays().outstanding("representation items"), 1u);
    ProSimprepdata* alias = data;
    EXPECT_EQ(host::shims::ProSimprepdataFree(context, &data), PRO_TK_NO_ERROR);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(session().arrays().outstanding(), 0u);
    EXPECT_EQ(host::shims::ProSimprepdataFree(context, &alias), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(host::shims::ProSimprepdataitemsVisit(context, alias, collectItem, &items), PRO_TK_BAD_INPUTS);

    ProSimprep broken{PRO_ITEM_SIMPREP, 3, handle(model)};
    session().faults().add({"ProSimprepdataGet", 0, &broken});
    EXPECT_NE(host::shims::ProSimprepdataGet(context, &broken, &data), PRO_TK_NO_ERROR);
    ProSimprep absent{PRO_ITEM_SIMPREP, 7, handle(model)};
    EXPECT_NE(host::shims::ProSimprepdataGet(context, &absent, &data), PRO_TK_NO_ERROR);
    EXPECT_EQ(session().handles().outstanding(), 0u);
}

}  // namespace
