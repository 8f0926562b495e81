#include <cmath>
#include <vector>

#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

// top > sub (feature 10) > inner (feature 20) > bolt (feature 30), with a
// second, unloaded component 11 in top and a suppressed one 12.
class Assemblies : public HostOperations {
protected:
    Assemblies()
        : bolt(session().addModel(part(u"bolt"))),
          inner(session().addModel(assembly(u"inner"))),
          sub(session().addModel(assembly(u"sub"))),
          top(session().addModel(assembly(u"top"))) {
        addComponent(inner, &bolt, 30, rotationX(90));
        addComponent(sub, &inner, 20, translation(0, 5, 0));
        addComponent(top, &sub, 10, host::multiply(rotationZ(90), translation(10, 0, 0)));
        addComponent(top, nullptr, 11);
        addComponent(top, &bolt, 12).status = PRO_FEAT_SUPPRESSED;
    }

    ProError init(host::Model& owner, std::vector<int> ids, ProAsmcomppath& path) {
        return host::shims::ProAsmcomppathInit(context, handle(owner), ids.data(), static_cast<int>(ids.size()), &path);
    }

    std::vector<double> transform(ProAsmcomppath& path, ProBoolean bottomUp) {
        ProMatrix matrix{};
        EXPECT_EQ(host::shims::ProAsmcomppathTrfGet(context, &path, bottomUp, matrix), PRO_TK_NO_ERROR);
        std::vector<double> numbers;
        for (auto& row : matrix) {
            for (double number : row) numbers.push_back(std::abs(number) < 1e-12 ? 0.0 : number);
        }
        return numbers;
    }

    host::Model& bolt;
    host::Model& inner;
    host::Model& sub;
    host::Model& top;
};

ProError collectFeature(ProFeature* feature, ProError, ProAppData data) {
    static_cast<std::vector<ProFeature>*>(data)->push_back(*feature);
    return PRO_TK_NO_ERROR;
}

ProError passOverUnloaded(ProFeature* feature, ProAppData) {
    ProMdl model = nullptr;
    return host::shims::ProAsmcompMdlGet(host::applicationContext, feature, &model) == 0 ? 0 : PRO_TK_CONTINUE;
}

TEST_F(Assemblies, FeatureVisitGivesTheOwnersFeaturesWithTheirTypeStatusAndModel) {
    std::vector<ProFeature> features;
    EXPECT_EQ(host::shims::ProSolidFeatVisit(context, handle(top), collectFeature, passOverUnloaded, &features), 0);
    ASSERT_EQ(features.size(), 2u);
    EXPECT_EQ(features[0].id, 10);
    EXPECT_EQ(features[1].id, 12);
    EXPECT_EQ(features[0].type, PRO_ITEM_FEATURE);
    EXPECT_EQ(features[0].owner, handle(top));
    int type = 0, status = -1;
    ProMdl model = nullptr;
    host::shims::ProFeatureTypeGet(context, &features[0], &type);
    host::shims::ProFeatureStatusGet(context, &features[1], &status);
    host::shims::ProAsmcompMdlGet(context, &features[0], &model);
    EXPECT_EQ(type, PRO_FEAT_TYPE_COMPONENT);
    EXPECT_EQ(status, PRO_FEAT_SUPPRESSED);
    EXPECT_EQ(model, handle(sub));
    ProFeature body{PRO_ITEM_FEATURE, bodyFeatureId, handle(bolt)};
    EXPECT_EQ(host::shims::ProAsmcompMdlGet(context, &body, &model), PRO_TK_BAD_INPUTS) << "no component";
    ProFeature missing{PRO_ITEM_FEATURE, 99, handle(top)};
    EXPECT_EQ(host::shims::ProFeatureTypeGet(context, &missing, &type), PRO_TK_E_NOT_FOUND);
}

TEST_F(Assemblies, PathInitChecksCountAndThatTheIdsLeadThroughComponents) {
    ProAsmcomppath path{};
    ASSERT_EQ(init(top, {10, 20, 30}, path), PRO_TK_NO_ERROR);
    EXPECT_EQ(path.ownerModel, handle(top));
    EXPECT_EQ(path.componentIdCount, 3);
    EXPECT_EQ(path.componentIds[2], 30);
    EXPECT_EQ(path.componentIds[3], 0);
    EXPECT_EQ(init(top, {}, path), PRO_TK_NO_ERROR);
    EXPECT_EQ(path.componentIdCount, 0);
    EXPECT_EQ(init(top, {11}, path), PRO_TK_NO_ERROR) << "the last model need not be loaded";

    path.componentIdCount = 7;
    EXPECT_NE(init(top, {10, 30}, path), PRO_TK_NO_ERROR) << "30 is no feature of sub";
    EXPECT_NE(init(top, {11, 1}, path), PRO_TK_NO_ERROR) << "through an unloaded model";
    EXPECT_NE(init(bolt, {1}, path), PRO_TK_NO_ERROR) << "the body is no component";
    const int ids[] = {10};
    EXPECT_NE(host::shims::ProAsmcomppathInit(context, handle(top), ids, -1, &path), PRO_TK_NO_ERROR);
    EXPECT_NE(init(top, std::vector<int>(26, 10), path), PRO_TK_NO_ERROR);
    EXPECT_EQ(path.componentIdCount, 7) << "a failure leaves the path";
}

TEST_F(Assemblies, TransformsComposeThePlacementsFromTheComponentUp) {
    ProAsmcomppath path{};
    ASSERT_EQ(init(top, {10, 20, 30}, path), PRO_TK_NO_ERROR);
    // bolt's x lies along top's y, its y along z, its z along x; its origin
    // is sub's (0, 5, 0) turned by 90 degrees about z and moved by 10 in x.
    const std::vector<double> toTop = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 5, 0, 0, 1};
    EXPECT_EQ(transform(path, PRO_B_TRUE), toTop);
    const std::vector<double> fromTop = {0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -5, 1};
    EXPECT_EQ(transform(path, PRO_B_FALSE), fromTop);

    // A one-level path whose owner is the parent gives the placement in it.
    ASSERT_EQ(init(inner, {30}, path), PRO_TK_NO_ERROR);
    EXPECT_EQ(transform(path, PRO_B_TRUE), (std::vector<double>{1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1}));
    ASSERT_EQ(init(top, {}, path), PRO_TK_NO_ERROR);
    EXPECT_EQ(transform(path, PRO_B_TRUE), (std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
}

TEST_F(Assemblies, GeometryItemsNameTheirOwningFeature) {
    host::Quilt& quilt = addQuilt(bolt, 1);
    ProGeomitem surface{}, quiltItem{};
    host::shims::ProSurfaceToGeomitem(context, handle(bolt), handle(bolt.surfaces[0]), &surface);
    host::shims::ProQuiltToGeomitem(context, handle(bolt), handle(quilt), &quiltItem);
    EXPECT_EQ(surface.type, PRO_ITEM_SURFACE);
    EXPECT_EQ(surface.id, firstSurfaceId);
    EXPECT_EQ(quiltItem.type, PRO_ITEM_QUILT);
    ProFeature feature{};
    ASSERT_EQ(host::shims::ProGeomitemFeatureGet(context, &surface, &feature), PRO_TK_NO_ERROR);
    EXPECT_EQ(feature.id, bodyFeatureId);
    EXPECT_EQ(feature.type, PRO_ITEM_FEATURE);
    ASSERT_EQ(host::shims::ProGeomitemFeatureGet(context, &quiltItem, &feature), PRO_TK_NO_ERROR);
    EXPECT_EQ(feature.id, quilt.featureId);
    EXPECT_NE(quilt.featureId, bodyFeatureId);
    bolt.surfaces[0].featureId = 77;
    EXPECT_NE(host::shims::ProGeomitemFeatureGet(context, &surface, &feature), PRO_TK_NO_ERROR);
}

}  // namespace
