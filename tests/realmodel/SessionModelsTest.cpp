// The session's models built from loaded CAD files: what the plug-in will
// find when it asks the host about them.
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <gtest/gtest.h>

#include <algorithm>

#include "../hostcad/CadTestSupport.h"
#include "MadeModels.h"
#include "host/cad/XdeDocumentBuilder.h"
#include "host/realmodel/ModelLoading.h"
#include "host/realmodel/StandardViews.h"

namespace host::realmodel {
namespace {

using cad::testing::ScratchFolder;

gp_Trsf moved(double x, double y, double z) {
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(x, y, z));
    return placement;
}

const Layer* layerHolding(const Model& model, int featureId) {
    for (const Layer& layer : model.layers) {
        for (const LayerItemRef& item : layer.items) {
            if (item.type == PRO_LAYER_ITEM_FEATURE && item.id == featureId) return &layer;
        }
    }
    return nullptr;
}

TEST(SessionModels, AssemblyOfComponentFeaturesOverSharedPartModels) {
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    const TDF_Label bolt = builder.addPart("BOLT", BRepPrimAPI_MakeCylinder(1.0, 5.0).Shape());
    const TDF_Label plate = builder.addPart("PLATE", BRepPrimAPI_MakeBox(10.0, 10.0, 1.0).Shape());
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, bolt, moved(2.0, 0.0, 0.0));
    builder.addComponent(top, bolt, moved(8.0, 0.0, 0.0));
    builder.addComponent(top, plate, moved(0.0, 0.0, -1.0));
    builder.writeStep(folder.file("top.step"), "in");

    Session session;
    const LoadedModel loaded = loadModelIntoSession(session, folder.file("top.step"));
    Model& topModel = *loaded.models.top;
    EXPECT_EQ(session.currentModel(), &topModel);
    EXPECT_EQ(session.mode(), modeAssembly);
    EXPECT_EQ(topModel.type, PRO_MDL_ASSEMBLY);
    EXPECT_EQ(topModel.name, u"TOP");
    EXPECT_EQ(topModel.lengthUnit, u"in");
    EXPECT_EQ(session.models().size(), 3u);

    ASSERT_EQ(topModel.features.size(), 3u);
    const Feature& first = topModel.features[0];
    const Feature& second = topModel.features[1];
    EXPECT_EQ(first.type, PRO_FEAT_TYPE_COMPONENT);
    EXPECT_EQ(first.status, PRO_FEAT_ACTIVE);
    EXPECT_EQ(first.component, second.component);
    EXPECT_NE(first.id, second.id);
    EXPECT_DOUBLE_EQ(first.placement[3][0], 2.0);
    EXPECT_DOUBLE_EQ(second.placement[3][0], 8.0);
    EXPECT_DOUBLE_EQ(topModel.features[2].placement[3][2], -1.0);

    const Model& boltModel = *first.component;
    EXPECT_EQ(boltModel.type, PRO_MDL_PART);
    EXPECT_EQ(boltModel.lengthUnit, u"in");
    ASSERT_EQ(boltModel.features.size(), 1u);
    EXPECT_EQ(boltModel.features[0].type, PRO_FEAT_TYPE_SOLID);
    EXPECT_EQ(boltModel.surfaces.size(), 3u);
    for (const Surface& surface : boltModel.surfaces) {
        EXPECT_EQ(surface.featureId, boltModel.features[0].id);
        EXPECT_NE(surface.id, boltModel.features[0].id);
    }
    // Two bolts of three faces and a plate of six.
    EXPECT_EQ(loaded.models.surfaceOccurrences, 12u);
    EXPECT_EQ(loaded.progress->total(), 12u);

    ASSERT_TRUE(topModel.outline.has_value());
    EXPECT_NEAR((*topModel.outline)[0][0], 0.0, 1e-6);
    EXPECT_NEAR((*topModel.outline)[1][0], 10.0, 1e-6);
    EXPECT_NEAR((*topModel.outline)[0][2], -1.0, 1e-6);
}

TEST(SessionModels, HiddenComponentsSitOnBlankedLayers) {
    ScratchFolder folder;
    testing::writeCubesWithHiddenOnes(folder.file("layers.step"));

    Session session;
    const LoadedModel loaded = loadModelIntoSession(session, folder.file("layers.step"));
    const Model& topModel = *loaded.models.top;
    ASSERT_EQ(topModel.features.size(), 3u);
    const Layer* first = layerHolding(topModel, topModel.features[0].id);
    const Layer* second = layerHolding(topModel, topModel.features[1].id);
    const Layer* third = layerHolding(topModel, topModel.features[2].id);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->name, u"SHOWN");
    EXPECT_EQ(first->displayStatus, PRO_LAYER_NORMAL);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->name, u"CONSTRUCTION");
    EXPECT_EQ(second->displayStatus, PRO_LAYER_BLANK);
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(third->name, blankedLayerName);
    EXPECT_EQ(third->displayStatus, PRO_LAYER_BLANK);
    // Only the shown cube is meshed.
    EXPECT_EQ(loaded.models.surfaceOccurrences, 6u);
    std::vector<int> layerIds;
    for (const Layer& layer : topModel.layers) layerIds.push_back(layer.id);
    std::sort(layerIds.begin(), layerIds.end());
    EXPECT_EQ(std::adjacent_find(layerIds.begin(), layerIds.end()), layerIds.end());
}

TEST(SessionModels, ColoursBecomeAppearancesNamedAfterTheirMaterial) {
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(2.0, 2.0, 2.0).Shape();
    const TDF_Label part = builder.addPart("BOX", box);
    builder.setColour(part, 1.0, 0.0, 0.0);
    builder.setMaterialName(part, "Steel");
    builder.writeStep(folder.file("box.step"), "mm");

    Session session;
    const LoadedModel loaded = loadModelIntoSession(session, folder.file("box.step"));
    const Model& model = *loaded.models.top;
    EXPECT_EQ(session.mode(), modePart);
    ASSERT_TRUE(model.appearance.has_value());
    EXPECT_EQ(std::u16string(model.appearance->name), u"Steel");
    EXPECT_EQ(std::u16string(model.appearance->label), u"Steel");
    EXPECT_DOUBLE_EQ(model.appearance->color[0], 1.0);
    EXPECT_DOUBLE_EQ(model.appearance->color[1], 0.0);
    EXPECT_GT(model.appearance->diffuse, 0.0);
    EXPECT_FALSE(model.texture.has_value());
}

TEST(SessionModels, SurfacesMeshAtTheChordHeightAskedAndCountTheirRequests) {
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    builder.addPart("ROD", BRepPrimAPI_MakeCylinder(10.0, 20.0).Shape());
    builder.writeStep(folder.file("rod.step"), "mm");

    Session session;
    const LoadedModel loaded = loadModelIntoSession(session, folder.file("rod.step"));
    const Model& rod = *loaded.models.top;
    const Surface* side = nullptr;
    for (const Surface& surface : rod.surfaces) {
        Point3 low{1e9, 1e9, 1e9}, high{-1e9, -1e9, -1e9};
        surface.geometry->extend(low, high);
        if (high[2] - low[2] > 19.0) side = &surface;
    }
    ASSERT_NE(side, nullptr);
    SurfaceMesh coarse, fine;
    ASSERT_EQ(side->geometry->tessellate(1.0, coarse), TessellationOutcome::Done);
    ASSERT_EQ(side->geometry->tessellate(0.01, fine), TessellationOutcome::Done);
    EXPECT_GT(fine.triangles.size(), coarse.triangles.size());
    ASSERT_EQ(coarse.normals.size(), coarse.vertices.size());
    ASSERT_EQ(coarse.parameters.size(), coarse.vertices.size());
    for (size_t i = 0; i < coarse.vertices.size(); ++i) {
        // The side of a cylinder about Z: the normal points away from the axis.
        const Point3& p = coarse.vertices[i];
        const Point3& n = coarse.normals[i];
        EXPECT_GT(p[0] * n[0] + p[1] * n[1], 0.0) << i;
    }
    for (const Triangle& triangle : fine.triangles) {
        for (int corner : triangle) ASSERT_LT(static_cast<size_t>(corner), fine.vertices.size());
    }
    SurfaceMesh refused;
    EXPECT_EQ(side->geometry->tessellate(0.0, refused), TessellationOutcome::Failed);
    EXPECT_EQ(side->geometry->tessellate(-1.0, refused), TessellationOutcome::Failed);
    EXPECT_EQ(loaded.progress->done(), 3u);
}

TEST(SessionModels, StandardViewsAreRotationsNamedAsTheHostNamesThem) {
    const std::vector<View> views = standardViews();
    std::vector<std::u16string> names;
    for (const View& view : views) names.push_back(view.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"FRONT", u"BACK", u"TOP", u"BOTTOM", u"LEFT", u"RIGHT",
                                                  u"ISOMETRIC"}));
    for (const View& view : views) {
        // Orthonormal and right-handed: the columns' cross product and determinant.
        const Matrix& m = view.matrix;
        const double determinant = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                                   m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                                   m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
        EXPECT_NEAR(determinant, 1.0, 1e-12);
        for (size_t a = 0; a < 3; ++a) {
            for (size_t b = 0; b < 3; ++b) {
                double dot = 0.0;
                for (size_t i = 0; i < 3; ++i) dot += m[i][a] * m[i][b];
                EXPECT_NEAR(dot, a == b ? 1.0 : 0.0, 1e-12);
            }
        }
    }
    // The top view looks down on the model: +Y comes towards the viewer.
    EXPECT_DOUBLE_EQ(views[2].matrix[1][2], 1.0);
    // The right view: +X comes towards the viewer.
    EXPECT_DOUBLE_EQ(views[5].matrix[0][2], 1.0);
}

TEST(SessionModels, FilesThatGiveNoModelLeaveTheSessionAlone_bad_) {
    ScratchFolder folder;
    Session session;
    EXPECT_THROW(loadModelIntoSession(session, folder.file("missing.step")), cad::CadLoadError);
    EXPECT_TRUE(session.models().empty());
    EXPECT_EQ(session.currentModel(), nullptr);
}

}  // namespace
}  // namespace host::realmodel
