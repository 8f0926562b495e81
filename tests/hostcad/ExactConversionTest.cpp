// The exact geometry of real shapes as the host's interface data: every kind
// of face the kernel makes converts to a B-spline surface, and each contour
// of edge uses closes in that surface's parameters and lies on the face's
// edges in space.
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeRevol.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRep_Tool.hxx>
#include <GeomAPI_PointsToBSpline.hxx>
#include <GeomAdaptor_Surface.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>
#include <gp_Ax2.hxx>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "CadTestSupport.h"
#include "host/cad/CadShapes.h"
#include "host/cad/ExactConversion.h"

namespace host::cad::testing {
namespace {

// A B-spline through the points, for free-form faces and profiles.
Handle(Geom_BSplineCurve) splineThrough(std::initializer_list<gp_Pnt> points) {
    TColgp_Array1OfPnt array(1, static_cast<int>(points.size()));
    int i = 1;
    for (const gp_Pnt& point : points) array(i++) = point;
    return GeomAPI_PointsToBSpline(array).Curve();
}

TopoDS_Shape freeFormFace() {
    TColgp_Array2OfPnt poles(1, 3, 1, 3);
    for (int i = 1; i <= 3; ++i)
        for (int j = 1; j <= 3; ++j) poles(i, j) = gp_Pnt(i, j, (i == 2 && j == 2) ? 1.0 : 0.0);
    TColStd_Array1OfReal knots(1, 2);
    knots(1) = 0;
    knots(2) = 1;
    TColStd_Array1OfInteger multiplicities(1, 2);
    multiplicities.Init(3);
    Handle(Geom_BSplineSurface) surface = new Geom_BSplineSurface(poles, knots, knots, multiplicities, multiplicities, 2, 2);
    return BRepBuilderAPI_MakeFace(surface, 1e-7).Shape();
}

TopoDS_Shape revolvedSpline() {
    TopoDS_Edge profile = BRepBuilderAPI_MakeEdge(splineThrough({{1, 0, 0}, {2, 0, 1}, {1.5, 0, 2}, {1, 0, 3}}));
    return BRepPrimAPI_MakeRevol(profile, gp_Ax1(gp::Origin(), gp::DZ())).Shape();
}

TopoDS_Shape extrudedSpline() {
    TopoDS_Edge profile = BRepBuilderAPI_MakeEdge(splineThrough({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}, {3, 1, 0}}));
    return BRepPrimAPI_MakePrism(profile, gp_Vec(0, 0, 2)).Shape();
}

// A block with a round hole through it: the top and bottom faces have holes.
TopoDS_Shape drilledBlock() {
    TopoDS_Shape block = BRepPrimAPI_MakeBox(4, 4, 2).Shape();
    TopoDS_Shape drill = BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(2, 2, -1), gp::DZ()), 1, 4).Shape();
    return BRepAlgoAPI_Cut(block, drill).Shape();
}

// Evaluates the converted surface at (u, v).
gp_Pnt surfacePoint(const BsplineSurfaceData& data, double u, double v) {
    const int countU = static_cast<int>(data.knotsU.size()) - data.degreeU - 1;
    const int countV = static_cast<int>(data.knotsV.size()) - data.degreeV - 1;
    TColgp_Array2OfPnt poles(1, countU, 1, countV);
    TColStd_Array2OfReal weights(1, countU, 1, countV);
    for (int i = 0; i < countU; ++i) {
        for (int j = 0; j < countV; ++j) {
            const Point3& p = data.points[static_cast<size_t>(i * countV + j)];
            poles(i + 1, j + 1) = gp_Pnt(p[0], p[1], p[2]);
            weights(i + 1, j + 1) = data.weights.empty() ? 1.0 : data.weights[static_cast<size_t>(i * countV + j)];
        }
    }
    TColStd_Array1OfReal flatU(1, static_cast<int>(data.knotsU.size())), flatV(1, static_cast<int>(data.knotsV.size()));
    for (size_t k = 0; k < data.knotsU.size(); ++k) flatU(static_cast<int>(k) + 1) = data.knotsU[k];
    for (size_t k = 0; k < data.knotsV.size(); ++k) flatV(static_cast<int>(k) + 1) = data.knotsV[k];
    TColStd_Array1OfReal knotsU(1, BSplCLib::KnotsLength(flatU)), knotsV(1, BSplCLib::KnotsLength(flatV));
    TColStd_Array1OfInteger multU(1, knotsU.Length()), multV(1, knotsV.Length());
    BSplCLib::Knots(flatU, knotsU, multU);
    BSplCLib::Knots(flatV, knotsV, multV);
    Geom_BSplineSurface surface(poles, weights, knotsU, knotsV, multU, multV, data.degreeU, data.degreeV);
    return surface.Value(u, v);
}

// Where each edge use starts in space: the vertex at the start of the
// direction in which the contour runs it.
gp_Pnt useStart(const TopoDS_Edge& edge, bool reversed) {
    TopoDS_Vertex first, last;
    TopExp::Vertices(edge, first, last, false);
    return BRep_Tool::Pnt(reversed ? last : first);
}

const EdgeSide* sideOn(const ExactEdge& edge, int surfaceId) {
    for (const EdgeSide& side : edge.sides)
        if (side.surfaceId == surfaceId && side.curve) return &side;
    return nullptr;
}

Point2 startOf(const EdgeSide& side) {
    const Point3& p = side.direction == PRO_EDGE_DIRECTION_REVERSED ? side.curve->points.back() : side.curve->points.front();
    return {p[0], p[1]};
}
Point2 endOf(const EdgeSide& side) {
    const Point3& p = side.direction == PRO_EDGE_DIRECTION_REVERSED ? side.curve->points.front() : side.curve->points.back();
    return {p[0], p[1]};
}

struct KindCase {
    const char* kind;
    TopoDS_Shape (*make)();
    size_t faces;
};

class ExactConversion : public ::testing::TestWithParam<KindCase> {};

TEST_P(ExactConversion, EveryFaceIsABsplineWhoseContoursCloseOnItsEdges) {
    const CadModel model = modelOfShape(GetParam().make());
    const CadPart& part = model.parts[0];
    ASSERT_EQ(part.faces.size(), GetParam().faces);
    const auto data = convertToInterfaceData(model, 0);
    std::map<int, const ExactEdge*> edges;
    std::map<int, const CadEdge*> cadEdges;
    for (const ExactEdge& edge : data->edges) edges[edge.id] = &edge;
    for (const CadEdge& edge : part.edges) cadEdges[edge.id] = &edge;
    std::vector<const ExactSurface*> surfaces;
    for (const ExactSurface& surface : data->surfaces) surfaces.push_back(&surface);
    for (const ExactQuilt& quilt : data->quilts)
        for (const auto& surface : quilt.surfaces) surfaces.push_back(&*surface);
    ASSERT_EQ(surfaces.size(), part.faces.size());

    for (const ExactSurface* surface : surfaces) {
        SCOPED_TRACE("surface " + std::to_string(surface->id));
        ASSERT_TRUE(surface->shape);
        const BsplineSurfaceData& shape = *surface->shape;
        EXPECT_TRUE(std::is_sorted(shape.knotsU.begin(), shape.knotsU.end()));
        const size_t countU = shape.knotsU.size() - static_cast<size_t>(shape.degreeU) - 1;
        const size_t countV = shape.knotsV.size() - static_cast<size_t>(shape.degreeV) - 1;
        EXPECT_EQ(shape.points.size(), countU * countV);
        ASSERT_FALSE(surface->contours.empty());
        EXPECT_EQ(surface->contours[0].traversal, PRO_CONTOUR_TRAV_EXTERNAL);
        for (const EdgeContour& contour : surface->contours) {
            std::vector<const EdgeSide*> uses;
            for (int id : contour.edgeIds) {
                const EdgeSide* side = sideOn(*edges.at(id), surface->id);
                ASSERT_NE(side, nullptr) << "edge " << id << " has a curve on the surface";
                uses.push_back(side);
                // The use's start in parameters is its start in space.
                const gp_Pnt onSurface = surfacePoint(shape, startOf(*side)[0], startOf(*side)[1]);
                const TopoDS_Edge& edge = model.shapes->edge(cadEdges.at(id)->shapeIndex);
                EXPECT_LT(onSurface.Distance(useStart(edge, side->direction == PRO_EDGE_DIRECTION_REVERSED)), 1e-4) << "edge " << id;
            }
            for (size_t k = 0; k < uses.size(); ++k) {
                const Point2 end = endOf(*uses[k]), start = startOf(*uses[(k + 1) % uses.size()]);
                EXPECT_LT(std::hypot(end[0] - start[0], end[1] - start[1]), 1e-10) << "contour closes at use " << k;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    FaceKinds, ExactConversion,
    ::testing::Values(KindCase{"planes", [] { return BRepPrimAPI_MakeBox(1, 2, 3).Shape(); }, 6},
                      KindCase{"cylinder with seam", [] { return BRepPrimAPI_MakeCylinder(1, 3).Shape(); }, 3},
                      KindCase{"cone to an apex", [] { return BRepPrimAPI_MakeCone(1, 0, 2).Shape(); }, 2},
                      KindCase{"sphere with poles", [] { return BRepPrimAPI_MakeSphere(2).Shape(); }, 1},
                      KindCase{"torus", [] { return BRepPrimAPI_MakeTorus(3, 1).Shape(); }, 1},
                      KindCase{"surface of revolution", revolvedSpline, 1},
                      KindCase{"surface of extrusion", extrudedSpline, 1},
                      KindCase{"free-form B-spline", freeFormFace, 1},
                      KindCase{"faces with holes", drilledBlock, 7}),
    [](const auto& info) {
        std::string name = info.param.kind;
        for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
        return name;
    });

TEST(ExactConversionContours, SeamsAndDegenerateEdgesGetIdsOfTheirOwnAndHolesFollowTheOuterWire) {
    // A sphere's one face: the seam twice (two ids) and both poles.
    const CadModel sphere = modelOfShape(BRepPrimAPI_MakeSphere(2).Shape());
    const CadFace& face = sphere.parts[0].faces[0];
    ASSERT_EQ(face.contours.size(), 1u);
    std::set<int> ids;
    for (const CadEdgeUse& use : face.contours[0].edges) ids.insert(use.edgeId);
    EXPECT_EQ(face.contours[0].edges.size(), 4u);
    EXPECT_EQ(ids.size(), 4u) << "seam, its second use and two poles, each its own id";

    // The drilled block's top face: the square first, then the hole.
    const CadModel block = modelOfShape(drilledBlock());
    size_t facesWithHoles = 0;
    for (const CadFace& each : block.parts[0].faces) {
        if (each.contours.size() < 2) continue;
        ++facesWithHoles;
        EXPECT_TRUE(each.contours[0].outer);
        EXPECT_FALSE(each.contours[1].outer);
        EXPECT_EQ(each.contours[0].edges.size(), 4u);
    }
    EXPECT_EQ(facesWithHoles, 2u);
}

}  // namespace
}  // namespace host::cad::testing
