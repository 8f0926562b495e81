#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <TopExp_Explorer.hxx>
#include <gtest/gtest.h>

#include "CadTestSupport.h"
#include "host/cad/CadLoader.h"
#include "host/cad/XdeDocumentBuilder.h"

namespace host::cad::testing {
namespace {

gp_Trsf moved(double x, double y, double z) {
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(x, y, z));
    return placement;
}

TEST(CadAssembly, PartUsedTwiceIsOneDefinitionWithTwoPlacements) {
    ScratchFolder folder;
    XdeDocumentBuilder builder;
    const TDF_Label bolt = builder.addPart("BOLT", BRepPrimAPI_MakeCylinder(1.0, 5.0).Shape());
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, bolt, moved(10.0, 0.0, 0.0));
    gp_Trsf turned;
    turned.SetRotation(gp_Ax1(gp::Origin(), gp::DZ()), M_PI / 2.0);
    turned.SetTranslationPart(gp_Vec(0.0, 20.0, 5.0));
    builder.addComponent(top, bolt, turned);
    builder.writeStep(folder.file("bolts.step"), "mm");

    const CadModel model = loadCadModel(folder.file("bolts.step"));
    ASSERT_EQ(model.parts.size(), 1u);
    const auto& components = assemblyNamed(model, "TOP").components;
    ASSERT_EQ(components.size(), 2u);
    EXPECT_EQ(components[0].target.index, components[1].target.index);
    EXPECT_NE(components[0].id, components[1].id);

    const RowMatrix expectedFirst = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {10, 0, 0, 1}}};
    const RowMatrix expectedSecond = {{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {0, 20, 5, 1}}};
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_NEAR(components[0].placement[i][j], expectedFirst[i][j], 1e-12) << i << "," << j;
            EXPECT_NEAR(components[1].placement[i][j], expectedSecond[i][j], 1e-12) << i << "," << j;
        }
    }
}

TEST(CadAssembly, OutlineOfAnAssemblyHoldsItsPlacedComponents) {
    ScratchFolder folder;
    XdeDocumentBuilder builder;
    const TDF_Label cube = builder.addPart("CUBE", BRepPrimAPI_MakeBox(1.0, 1.0, 1.0).Shape());
    const TDF_Label sub = builder.addAssembly("SUB");
    builder.addComponent(sub, cube, moved(10.0, 0.0, 0.0));
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, sub, moved(0.0, 10.0, 0.0));
    builder.addComponent(top, cube, moved(0.0, 0.0, -3.0));
    builder.writeStep(folder.file("nested.step"), "mm");

    const CadModel model = loadCadModel(folder.file("nested.step"));
    const Outline outline = outlineOf(model, model.top);
    const std::array<double, 3> low{0.0, 0.0, -3.0}, high{11.0, 11.0, 1.0};
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(outline.min[i], low[i], 1e-6);
        EXPECT_NEAR(outline.max[i], high[i], 1e-6);
    }
}

TEST(CadAssembly, FaceColoursStandBesideThePartsNamedMaterial) {
    ScratchFolder folder;
    XdeDocumentBuilder builder;
    const TopoDS_Shape shape = BRepPrimAPI_MakeBox(1.0, 1.0, 1.0).Shape();
    const TDF_Label box = builder.addPart("BOX", shape);
    builder.setColour(box, 1.0, 0.0, 0.0);
    builder.setMaterialName(box, "Steel");
    builder.setFaceColour(box, TopExp_Explorer(shape, TopAbs_FACE).Current(), 0.0, 0.0, 1.0);
    builder.writeStep(folder.file("box.step"), "mm");

    const CadModel model = loadCadModel(folder.file("box.step"));
    const CadPart& part = model.parts.at(0);
    ASSERT_TRUE(part.appearance.has_value());
    EXPECT_EQ(part.appearance->name, "Steel");
    EXPECT_NEAR(part.appearance->red, 1.0, 1e-6);  // the kernel keeps colours in single precision
    EXPECT_EQ(part.appearance->blue, 0.0);
    int ownColours = 0;
    for (const CadFace& face : part.faces) {
        if (!face.appearance) continue;
        ++ownColours;
        EXPECT_NEAR(face.appearance->blue, 1.0, 1e-6);
        EXPECT_EQ(face.appearance->red, 0.0);
        EXPECT_EQ(face.appearance->name, "");
    }
    EXPECT_EQ(ownColours, 1);
}

TEST(CadAssembly, HiddenLayersAndHiddenShapesAreBlanked) {
    ScratchFolder folder;
    XdeDocumentBuilder builder;
    // Parts of one shape would be one product in the file: each gets its own.
    auto cube = [](double size) { return BRepPrimAPI_MakeBox(size, size, size).Shape(); };
    const TDF_Label onHiddenLayer = builder.addPart("ON_HIDDEN_LAYER", cube(1.0));
    builder.putOnLayer(onHiddenLayer, "HIDDEN", false);
    const TDF_Label onShownLayer = builder.addPart("ON_SHOWN_LAYER", cube(1.1));
    builder.putOnLayer(onShownLayer, "SHOWN", true);
    const TDF_Label hiddenPart = builder.addPart("HIDDEN_PART", cube(1.2));
    builder.hide(hiddenPart);
    const TDF_Label plain = builder.addPart("PLAIN", cube(1.3));
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, onHiddenLayer, moved(0, 0, 0));
    builder.addComponent(top, onShownLayer, moved(2, 0, 0));
    builder.addComponent(top, hiddenPart, moved(4, 0, 0));
    // The STEP writer keeps an occurrence's visibility only with a style: a colour.
    const TDF_Label hiddenUse = builder.addComponent(top, plain, moved(6, 0, 0));
    builder.setColour(hiddenUse, 0.0, 1.0, 0.0);
    builder.hide(hiddenUse);
    builder.addComponent(top, plain, moved(8, 0, 0));
    builder.writeStep(folder.file("layers.step"), "mm");

    const CadModel model = loadCadModel(folder.file("layers.step"));
    const auto& components = assemblyNamed(model, "TOP").components;
    ASSERT_EQ(components.size(), 5u);
    const bool expectedBlanked[] = {true, false, true, true, false};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(components[i].blanked, expectedBlanked[i]) << "component " << i;
    EXPECT_EQ(components[0].layerNames, std::vector<std::string>{"HIDDEN"});
    EXPECT_EQ(components[1].layerNames, std::vector<std::string>{"SHOWN"});
    ASSERT_TRUE(components[3].appearance.has_value());
    EXPECT_NEAR(components[3].appearance->green, 1.0, 1e-6);
    EXPECT_FALSE(components[4].appearance.has_value());

    ASSERT_EQ(model.layers.size(), 2u);
    for (const CadLayer& layer : model.layers) EXPECT_EQ(layer.visible, layer.name == "SHOWN") << layer.name;
}

}  // namespace
}  // namespace host::cad::testing
