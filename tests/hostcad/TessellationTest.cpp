#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <GeomAPI_PointsToBSplineSurface.hxx>
#include <Geom_BSplineSurface.hxx>
#include <ShapeAnalysis_Surface.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <gp_Pln.hxx>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "CadTestSupport.h"
#include "host/cad/CadLoader.h"
#include "host/cad/CadShapes.h"
#include "host/cad/XdeDocumentBuilder.h"

namespace host::cad::testing {
namespace {

TessellationResult meshOfOnlyFace(const CadModel& model, double chordHeight) {
    EXPECT_EQ(model.parts[0].faces.size(), 1u);
    return tessellateFace(model, model.parts[0].faces.at(0), chordHeight);
}

TEST(FaceTessellation, ReversedFaceFlipsNormalsAndWinding) {
    const TopoDS_Shape square = BRepBuilderAPI_MakeFace(gp_Pln(), 0.0, 1.0, 0.0, 1.0).Shape();
    const CadModel forward = modelOfShape(square);
    const CadModel reversed = modelOfShape(square.Reversed());
    EXPECT_FALSE(forward.parts[0].faces[0].reversed);
    EXPECT_TRUE(reversed.parts[0].faces[0].reversed);

    for (const auto& [model, sign] : {std::pair{&forward, 1.0}, std::pair{&reversed, -1.0}}) {
        const TessellationResult result = meshOfOnlyFace(*model, 0.01);
        ASSERT_TRUE(result.ok()) << result.failure;
        const FaceTessellation& mesh = *result.mesh;
        ASSERT_GT(mesh.triangleCount(), 0u);
        ASSERT_EQ(mesh.uvs.size(), 2 * mesh.vertexCount());
        for (int v = 0; v < static_cast<int>(mesh.vertexCount()); ++v) {
            EXPECT_NEAR(normalOf(mesh, v)[2], sign, 1e-12);
        }
        for (int t = 0; t < static_cast<int>(mesh.triangleCount()); ++t) {
            EXPECT_GT(sign * windingNormal(mesh, t)[2], 0.0) << "triangle " << t;
        }
    }
}

bool covers(const FaceTessellation& mesh, int triangle, double x, double y) {
    const auto a = vertexOf(mesh, mesh.triangles[3 * triangle]);
    const auto b = vertexOf(mesh, mesh.triangles[3 * triangle + 1]);
    const auto c = vertexOf(mesh, mesh.triangles[3 * triangle + 2]);
    auto side = [&](const auto& p, const auto& q) { return (q[0] - p[0]) * (y - p[1]) - (q[1] - p[1]) * (x - p[0]); };
    const double ab = side(a, b), bc = side(b, c), ca = side(c, a);
    return (ab >= 0 && bc >= 0 && ca >= 0) || (ab <= 0 && bc <= 0 && ca <= 0);
}

TEST(FaceTessellation, NoTriangleCoversAHole) {
    TopoDS_Shape plate = BRepPrimAPI_MakeBox(100.0, 60.0, 10.0).Shape();
    for (double x : {25.0, 75.0}) {
        const gp_Ax2 axis(gp_Pnt(x, 30.0, -1.0), gp::DZ());
        plate = BRepAlgoAPI_Cut(plate, BRepPrimAPI_MakeCylinder(axis, 8.0, 12.0).Shape()).Shape();
    }
    const CadModel model = modelOfShape(plate);
    int topFaces = 0;
    for (const CadFace& face : model.parts[0].faces) {
        const TessellationResult result = tessellateFace(model, face, 0.05);
        ASSERT_TRUE(result.ok()) << result.failure;
        const FaceTessellation& mesh = *result.mesh;
        if (std::abs(vertexOf(mesh, 0)[2] - 10.0) > 1e-9 || std::abs(normalOf(mesh, 0)[2] - 1.0) > 1e-9) continue;
        ++topFaces;
        bool solidPointCovered = false;
        for (int t = 0; t < static_cast<int>(mesh.triangleCount()); ++t) {
            EXPECT_FALSE(covers(mesh, t, 25.0, 30.0)) << "triangle " << t;
            EXPECT_FALSE(covers(mesh, t, 75.0, 30.0)) << "triangle " << t;
            solidPointCovered = solidPointCovered || covers(mesh, t, 50.0, 30.0);
        }
        EXPECT_TRUE(solidPointCovered);
    }
    EXPECT_EQ(topFaces, 1);
}

// Every triangle's centre lies within the chord height of the exact surface;
// `distance` gets the centre and the mean of its corners' surface parameters.
using DistanceToSurface = std::function<double(const std::array<double, 3>&, const gp_Pnt2d&)>;

void expectWithinChord(const CadModel& model, double chordHeight, const DistanceToSurface& distance,
                       std::size_t& triangles) {
    const TessellationResult result = meshOfOnlyFace(model, chordHeight);
    ASSERT_TRUE(result.ok()) << result.failure;
    const FaceTessellation& mesh = *result.mesh;
    triangles = mesh.triangleCount();
    double farthest = 0.0;
    for (int t = 0; t < static_cast<int>(triangles); ++t) {
        double u = 0.0, v = 0.0;
        for (int k = 0; k < 3; ++k) {
            u += mesh.uvs[2 * mesh.triangles[3 * t + k]] / 3.0;
            v += mesh.uvs[2 * mesh.triangles[3 * t + k] + 1] / 3.0;
        }
        farthest = std::max(farthest, distance(centroidOf(mesh, t), gp_Pnt2d(u, v)));
    }
    EXPECT_LE(farthest, chordHeight) << "at chord height " << chordHeight;
    EXPECT_GT(farthest, 0.0);
}

TEST(FaceTessellation, ChordHeightReachesTheMesherOnABSplineSurface) {
    TColgp_Array2OfPnt points(1, 6, 1, 6);
    for (int i = 1; i <= 6; ++i) {
        for (int j = 1; j <= 6; ++j) points(i, j) = gp_Pnt(10.0 * i, 10.0 * j, 5.0 * std::sin(i) * std::cos(0.7 * j));
    }
    Handle(Geom_BSplineSurface) surface = GeomAPI_PointsToBSplineSurface(points).Surface();
    const CadModel model = modelOfShape(BRepBuilderAPI_MakeFace(surface, 1e-6).Shape());
    ShapeAnalysis_Surface analysis(surface);
    auto offSurface = [&](const std::array<double, 3>& p, const gp_Pnt2d& near) {
        analysis.NextValueOfUV(near, gp_Pnt(p[0], p[1], p[2]), 1e-9);
        return analysis.Gap();
    };
    std::size_t coarse = 0, fine = 0;
    expectWithinChord(model, 0.2, offSurface, coarse);
    expectWithinChord(model, 0.02, offSurface, fine);
    EXPECT_GT(fine, 2 * coarse);
}

TEST(FaceTessellation, AnswersAreKeptPerChordHeight) {
    const CadModel model = modelOfShape(BRepPrimAPI_MakeCylinder(5.0, 10.0).Shape());
    const CadFace& side = model.parts[0].faces[0];
    const TessellationResult first = tessellateFace(model, side, 0.1);
    const TessellationResult finer = tessellateFace(model, side, 0.001);
    const TessellationResult again = tessellateFace(model, side, 0.1);
    ASSERT_TRUE(first.ok() && finer.ok() && again.ok());
    EXPECT_EQ(first.mesh, again.mesh);
    EXPECT_NE(first.mesh, finer.mesh);
    EXPECT_GT(finer.mesh->triangleCount(), first.mesh->triangleCount());
}

// A job that meshes the whole model makes every part's meshes at the first
// request, at the same share of each part's size, the same meshes as asked
// one by one; a request at that share, worked out for another part, finds
// them instead of meshing again.
TEST(FaceTessellation, MeshingAheadMakesEveryPartAtTheShareOfItsSizeThatTheFirstAsked) {
    ScratchFolder folder;
    XdeDocumentBuilder builder;
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, builder.addPart("PLATE", BRepPrimAPI_MakeBox(80.0, 60.0, 10.0).Shape()), gp_Trsf());
    builder.addComponent(top, builder.addPart("BALL", BRepPrimAPI_MakeSphere(9.0).Shape()), gp_Trsf());
    builder.writeStep(folder.file("two.step"), "mm");
    const CadModel ahead = loadCadModel(folder.file("two.step"));
    const CadModel alone = loadCadModel(folder.file("two.step"));
    const CadPart& plate = partNamed(ahead, "PLATE");
    const CadPart& ball = partNamed(ahead, "BALL");
    const int plateIndex = static_cast<int>(&plate - ahead.parts.data());
    const double share = 3e-4;
    const double ballHeight = ball.outline.diagonal() * 0.01 * share * 100.0;  // worked out as another would

    meshModelAhead(ahead, plateIndex, share * plate.outline.diagonal());
    const TessellationResult* made = ahead.shapes->findTessellation(ball.faces[0].shapeIndex, ballHeight);
    ASSERT_NE(made, nullptr) << "the ball was meshed with the plate";
    ASSERT_TRUE(made->ok());
    EXPECT_EQ(tessellateFace(ahead, ball.faces[0], ballHeight).mesh, made->mesh) << "found, not meshed again";
    const TessellationResult single = tessellateFace(alone, partNamed(alone, "BALL").faces[0], ballHeight);
    ASSERT_TRUE(single.ok());
    EXPECT_EQ(made->mesh->vertices, single.mesh->vertices);
    EXPECT_EQ(made->mesh->triangles, single.mesh->triangles);
    for (const CadFace& face : plate.faces) {
        const TessellationResult* side = ahead.shapes->findTessellation(face.shapeIndex, share * plate.outline.diagonal());
        EXPECT_TRUE(side && side->ok()) << "plate face " << face.id;
    }
    EXPECT_EQ(ahead.shapes->findTessellation(ball.faces[0].shapeIndex, ballHeight * 1.001), nullptr)
        << "another chord height is another mesh";
}

TEST(FaceTessellation, UnusableChordHeights_bad_) {
    const CadModel model = modelOfShape(BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape());
    const CadFace& face = model.parts[0].faces[0];
    for (double chord : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
        const TessellationResult result = tessellateFace(model, face, chord);
        EXPECT_FALSE(result.ok());
        EXPECT_NE(result.failure.find("is not a positive length"), std::string::npos) << result.failure;
    }
    const TessellationResult tooFine = tessellateFace(model, face, 1e-9);
    EXPECT_FALSE(tooFine.ok());
    EXPECT_NE(tooFine.failure.find("too fine for face " + std::to_string(face.id)), std::string::npos) << tooFine.failure;

    CadFace stranger = face;
    stranger.shapeIndex = 99;
    EXPECT_FALSE(tessellateFace(model, stranger, 0.1).ok());
}

}  // namespace
}  // namespace host::cad::testing
