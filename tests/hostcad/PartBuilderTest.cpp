#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRep_Builder.hxx>
#include <Poly_Triangulation.hxx>
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

// A face of a tessellated model has a mesh and no surface. Used reversed, its
// facets turn round: corners in the other order and the normal the other way.
TEST(PartBuilder, AReversedMeshOnlyFaceTurnsItsFacets) {
    BRep_Builder builder;
    auto meshOnlyFace = [&](double z) {
        Handle(Poly_Triangulation) mesh = new Poly_Triangulation(3, 1, false);
        mesh->SetNode(1, gp_Pnt(0, 0, z));
        mesh->SetNode(2, gp_Pnt(2, 0, z));
        mesh->SetNode(3, gp_Pnt(0, 3, z));
        mesh->SetTriangle(1, Poly_Triangle(1, 2, 3));
        TopoDS_Face face;
        builder.MakeFace(face, mesh);
        return face;
    };
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    builder.Add(compound, meshOnlyFace(0));
    builder.Add(compound, meshOnlyFace(1).Reversed());

    const CadModel model = modelOfShape(compound);
    const CadPart& part = model.parts[0];
    EXPECT_TRUE(part.faces.empty()) << "a face without a surface is no exact face";
    ASSERT_EQ(part.facets.size(), 2u);
    using Points = std::array<std::array<double, 3>, 3>;
    EXPECT_EQ(part.facets[0].points, (Points{{{0, 0, 0}, {2, 0, 0}, {0, 3, 0}}}));
    EXPECT_EQ(part.facets[0].normal, (std::array<double, 3>{0, 0, 1}));
    EXPECT_EQ(part.facets[1].points, (Points{{{0, 0, 1}, {0, 3, 1}, {2, 0, 1}}}));
    EXPECT_EQ(part.facets[1].normal, (std::array<double, 3>{0, 0, -1}));
}

}  // namespace
}  // namespace host::cad::testing
