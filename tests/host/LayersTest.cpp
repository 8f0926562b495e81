#include <vector>

#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

class Layers : public HostOperations {
protected:
    Layers() : model(session().addModel(assembly(u"top"))), quilt(addQuilt(model, 1)) {
        addComponent(model, nullptr, 10);
        addComponent(model, nullptr, 11);
        addComponent(model, nullptr, 12);
        addLayer(model, 1, u"NORMAL", PRO_LAYER_NORMAL, {{PRO_LAYER_ITEM_FEATURE, 10}, {PRO_LAYER_ITEM_FEATURE, 11}});
        addLayer(model, 2, u"BLANKED", PRO_LAYER_BLANK, {{PRO_LAYER_ITEM_FEATURE, 11}});
        addLayer(model, 3, u"HIDDEN", PRO_LAYER_HIDDEN, {{PRO_LAYER_ITEM_QUILT, quilt.id}});
        addLayer(model, 4, u"SHOWN", PRO_LAYER_DISPLAY, {{PRO_LAYER_ITEM_FEATURE, 12}});
    }

    ProLayerItem item(int type, int id) {
        ProLayerItem made{};
        EXPECT_EQ(host::shims::ProLayerItemInit(context, type, id, handle(model), &made), PRO_TK_NO_ERROR);
        return made;
    }

    int statusOf(ProLayerItem made, ProLayer* layer = nullptr) {
        int status = -9;
        EXPECT_EQ(host::shims::ProLayeritemStatusGet(context, &made, layer, &status), PRO_TK_NO_ERROR);
        return status;
    }

    // The ids and display statuses of the layers that hold the item.
    std::vector<std::pair<int, int>> layersOf(ProLayerItem made) {
        ProLayer* layers = nullptr;
        EXPECT_EQ(host::shims::ProLayeritemLayersGet(context, nullptr, &made, &layers), PRO_TK_NO_ERROR);
        int count = -1;
        host::shims::ProArraySizeGet(context, layers, &count);
        std::vector<std::pair<int, int>> found;
        for (int index = 0; index < count; ++index) {
            int status = 0;
            EXPECT_EQ(layers[index].type, PRO_ITEM_LAYER);
            host::shims::ProLayerDisplaystatusGet(context, &layers[index], &status);
            found.emplace_back(layers[index].id, status);
        }
        host::shims::ProArrayFree(context, reinterpret_cast<ProArray*>(&layers));
        return found;
    }

    host::Model& model;
    host::Quilt& quilt;
};

TEST_F(Layers, AnItemShowsUnlessABlankedOrHiddenLayerHoldsIt) {
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_FEATURE, 10)), 1);
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_FEATURE, 11)), 0);
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_FEATURE, 12)), 1) << "a display layer shows its items";
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_QUILT, quilt.id)), 0);
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_FEATURE, quilt.id)), 1) << "the type is part of the item";
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_FEATURE, 99)), 1);
    // Given a layer, only that one counts.
    ProLayer normal{PRO_ITEM_LAYER, 1, handle(model)};
    EXPECT_EQ(statusOf(item(PRO_LAYER_ITEM_FEATURE, 11), &normal), 1);
}

TEST_F(Layers, TheLayersOfAnItemComeAsAHostArrayEmptyForNone) {
    EXPECT_EQ(layersOf(item(PRO_LAYER_ITEM_FEATURE, 11)),
              (std::vector<std::pair<int, int>>{{1, PRO_LAYER_NORMAL}, {2, PRO_LAYER_BLANK}}));
    EXPECT_EQ(layersOf(item(PRO_LAYER_ITEM_FEATURE, 12)), (std::vector<std::pair<int, int>>{{4, PRO_LAYER_DISPLAY}}));
    EXPECT_TRUE(layersOf(item(PRO_LAYER_ITEM_FEATURE, 99)).empty());
    EXPECT_EQ(session().arrays().outstanding(), 0u);
    ProLayer absent{PRO_ITEM_LAYER, 9, handle(model)};
    int status = 0;
    EXPECT_EQ(host::shims::ProLayerDisplaystatusGet(context, &absent, &status), PRO_TK_E_NOT_FOUND);
}

TEST_F(Layers, HiddenInactiveAndBackupFlagsAreReadOfTheirItems) {
    model.features[1].hidden = true;  // component 10
    quilt.inactive = true;
    quilt.backup = true;
    ProBoolean flag = PRO_B_FALSE;
    ProModelitem feature{PRO_ITEM_FEATURE, 10, handle(model)};
    ASSERT_EQ(host::shims::ProModelitemIsHidden(context, &feature, &flag), PRO_TK_NO_ERROR);
    EXPECT_EQ(flag, PRO_B_TRUE);
    ProModelitem quiltItem{PRO_ITEM_QUILT, quilt.id, handle(model)};
    ASSERT_EQ(host::shims::ProModelitemIsHidden(context, &quiltItem, &flag), PRO_TK_NO_ERROR);
    EXPECT_EQ(flag, PRO_B_FALSE);
    ASSERT_EQ(host::shims::ProGeomitemIsInactive(context, &quiltItem, &flag), PRO_TK_NO_ERROR);
    EXPECT_EQ(flag, PRO_B_TRUE);
    ProModelitem surface{PRO_ITEM_SURFACE, quilt.surfaces[0].id, handle(model)};
    ASSERT_EQ(host::shims::ProGeomitemIsInactive(context, &surface, &flag), PRO_TK_NO_ERROR);
    EXPECT_EQ(flag, PRO_B_FALSE);
    EXPECT_EQ(host::shims::ProGeomitemIsInactive(context, &feature, &flag), PRO_TK_BAD_INPUTS);
    ASSERT_EQ(host::shims::ProQuiltIsBackupgeometry(context, handle(quilt), &flag), PRO_TK_NO_ERROR);
    EXPECT_EQ(flag, PRO_B_TRUE);
}

}  // namespace
