#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>
#include <gp_Pln.hxx>
#include <gtest/gtest.h>

#include "CadTestSupport.h"
#include "host/cad/CadShapes.h"
#include "host/cad/PartBuilder.h"

namespace host::cad::testing {
namespace {

CadAppearance colour(double red, double green, double blue) {
    CadAppearance appearance;
    appearance.red = red;
    appearance.green = green;
    appearance.blue = blue;
    return appearance;
}

TEST(PartBuilder, FacesOutsideSolidsMakeQuilts) {
    TopoDS_Compound compound;
    BRep_Builder builder;
    builder.MakeCompound(compound);
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 1.0, 1.0).Shape();
    builder.Add(compound, box);
    builder.Add(compound, TopExp_Explorer(BRepPrimAPI_MakeBox(gp_Pnt(5, 0, 0), 1.0, 1.0, 1.0).Shape(), TopAbs_SHELL).Current());
    builder.Add(compound, BRepBuilderAPI_MakeFace(gp_Pln(gp_Pnt(0, 0, 9), gp::DZ()), 0, 1, 0, 1).Shape());
    builder.Add(compound, BRepBuilderAPI_MakeFace(gp_Pln(gp_Pnt(0, 0, 8), gp::DZ()), 0, 1, 0, 1).Shape());

    const CadModel model = modelOfShape(compound);
    const CadPart& part = model.parts[0];
    ASSERT_EQ(part.faces.size(), 14u);
    ASSERT_EQ(part.quilts.size(), 2u);
    EXPECT_EQ(part.quilts[0].faceIds, (std::vector<int>{7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(part.quilts[1].faceIds, (std::vector<int>{13, 14}));
    EXPECT_GT(part.quilts[0].id, part.edges.back().id);
    for (const CadFace& face : part.faces) {
        const int expectedQuilt = face.id <= 6 ? 0 : face.id <= 12 ? part.quilts[0].id : part.quilts[1].id;
        EXPECT_EQ(face.quiltId, expectedQuilt) << "face " << face.id;
    }
}

TEST(PartBuilder, AFacesOwnAppearanceWinsOverItsSolids) {
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 1.0, 1.0).Shape();
    const TopoDS_Shape solid = TopExp_Explorer(box, TopAbs_SOLID).Current();
    const TopoDS_Shape lastFace = [&] {
        TopoDS_Shape last;
        for (TopExp_Explorer faces(box, TopAbs_FACE); faces.More(); faces.Next()) last = faces.Current();
        return last;
    }();
    // The face comes first, so that order alone can't decide.
    const std::vector<SubShapeAppearance> pieces{{lastFace, colour(0, 0, 1)}, {solid, colour(1, 0, 0)}};
    CadShapes shapes;
    const CadPart part = buildPart("BOX", box, std::nullopt, pieces, shapes);
    ASSERT_EQ(part.faces.size(), 6u);
    for (int i = 0; i < 6; ++i) {
        ASSERT_TRUE(part.faces[i].appearance.has_value());
        EXPECT_EQ(part.faces[i].appearance->blue, i == 5 ? 1.0 : 0.0) << "face " << i;
    }
    EXPECT_FALSE(part.appearance.has_value());
}

}  // namespace
}  // namespace host::cad::testing
