#include "host/cad/ExactConversion.h"

#include <BRepBuilderAPI_Copy.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Geom2dConvert.hxx>
#include <Geom2d_BSplineCurve.hxx>
#include <Geom2d_TrimmedCurve.hxx>
#include <GeomConvert.hxx>
#include <Geom_BSplineSurface.hxx>
#include <Geom_RectangularTrimmedSurface.hxx>
#include <OSD_Parallel.hxx>
#include <Standard_Failure.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <vector>

#include "host/cad/CadShapes.h"

namespace host::cad {

namespace {

// Curves in parameters are fitted to this share of the part's size: five
// times finer than the meshes beside them at the default quality (a chord
// height of 1.6e-4 of the part's size), and the renderer only needs the trim
// to follow the surface that closely. A finer share makes the fitting of
// curves of intersection slow: at 1e-5 the exact road of a model of such
// curves costs more than its meshing.
constexpr double trimToleranceShare = 3e-5;

std::vector<double> flatKnots(const TColStd_Array1OfReal& sequence) {
    return std::vector<double>(sequence.begin(), sequence.end());
}

Handle(Geom_BSplineSurface) bsplineOf(const TopoDS_Face& face) {
    Handle(Geom_Surface) surface = BRep_Tool::Surface(face);
    if (surface.IsNull()) return nullptr;
    Handle(Geom_BSplineSurface) bspline = Handle(Geom_BSplineSurface)::DownCast(surface);
    if (bspline.IsNull()) bspline = GeomConvert::SurfaceToBSplineSurface(surface);
    bspline = Handle(Geom_BSplineSurface)::DownCast(bspline->Copy());
    if (bspline->IsUPeriodic()) bspline->SetUNotPeriodic();
    if (bspline->IsVPeriodic()) bspline->SetVNotPeriodic();
    return bspline;
}

BsplineSurfaceData surfaceData(const Geom_BSplineSurface& surface) {
    BsplineSurfaceData data;
    data.degreeU = surface.UDegree();
    data.degreeV = surface.VDegree();
    TColStd_Array1OfReal knotsU(1, surface.NbUPoles() + surface.UDegree() + 1);
    TColStd_Array1OfReal knotsV(1, surface.NbVPoles() + surface.VDegree() + 1);
    surface.UKnotSequence(knotsU);
    surface.VKnotSequence(knotsV);
    data.knotsU = flatKnots(knotsU);
    data.knotsV = flatKnots(knotsV);
    const bool rational = surface.IsURational() || surface.IsVRational();
    for (int i = 1; i <= surface.NbUPoles(); ++i) {
        for (int j = 1; j <= surface.NbVPoles(); ++j) {
            const gp_Pnt pole = surface.Pole(i, j);
            data.points.push_back({pole.X(), pole.Y(), pole.Z()});
            if (rational) data.weights.push_back(surface.Weight(i, j));
        }
    }
    return data;
}

std::optional<BsplineCurveData> curveOnFace(const TopoDS_Edge& edge, const TopoDS_Face& face) {
    double first = 0.0, last = 0.0;
    Handle(Geom2d_Curve) curve = BRep_Tool::CurveOnSurface(edge, face, first, last);
    if (curve.IsNull() || !(first < last)) return std::nullopt;
    Handle(Geom2d_BSplineCurve) bspline =
        Geom2dConvert::CurveToBSplineCurve(new Geom2d_TrimmedCurve(curve, first, last));
    if (bspline.IsNull()) return std::nullopt;
    if (bspline->IsPeriodic()) bspline->SetNotPeriodic();
    BsplineCurveData data;
    data.degree = bspline->Degree();
    TColStd_Array1OfReal knots(1, bspline->NbPoles() + bspline->Degree() + 1);
    bspline->KnotSequence(knots);
    data.knots = flatKnots(knots);
    for (int i = 1; i <= bspline->NbPoles(); ++i) {
        const gp_Pnt2d pole = bspline->Pole(i);
        data.points.push_back({pole.X(), pole.Y(), 0.0});
        if (bspline->IsRational()) data.weights.push_back(bspline->Weight(i));
    }
    return data;
}

// The sides that the uses of each edge give, by edge id, in the order met.
using SidesById = std::map<int, std::vector<EdgeSide>>;

struct ContourUse {
    int edgeId;
    EdgeSide side;
};

Point3& startOf(EdgeSide& side) { return side.direction == PRO_EDGE_DIRECTION_REVERSED ? side.curve->points.back() : side.curve->points.front(); }
Point3& endOf(EdgeSide& side) { return side.direction == PRO_EDGE_DIRECTION_REVERSED ? side.curve->points.front() : side.curve->points.back(); }

// Curves in parameters that the file or the conversion gives only close to
// each other: where one use ends near the next one's start, the start is
// moved onto that end, so that the contour closes exactly in parameters.
void closeGaps(std::vector<ContourUse>& uses) {
    double low[2] = {1e300, 1e300}, high[2] = {-1e300, -1e300};
    for (const ContourUse& use : uses) {
        if (!use.side.curve) continue;
        for (const Point3& point : use.side.curve->points) {
            for (int axis = 0; axis < 2; ++axis) {
                low[axis] = std::min(low[axis], point[axis]);
                high[axis] = std::max(high[axis], point[axis]);
            }
        }
    }
    const double tolerance = 1e-4 * std::max({high[0] - low[0], high[1] - low[1], 1e-9});
    for (size_t k = 0; k < uses.size(); ++k) {
        EdgeSide& from = uses[k].side;
        EdgeSide& to = uses[(k + 1) % uses.size()].side;
        if (!from.curve || !to.curve || from.curve->points.empty() || to.curve->points.empty()) continue;
        Point3& end = endOf(from);
        Point3& start = startOf(to);
        if (std::fabs(end[0] - start[0]) < tolerance && std::fabs(end[1] - start[1]) < tolerance) start = end;
    }
}

bool isBspline(const TopoDS_Face& face) {
    TopLoc_Location location;
    return !Handle(Geom_BSplineSurface)::DownCast(BRep_Tool::Surface(face, location)).IsNull();
}

// Raises the tolerance of every edge and vertex of the face to at least
// `tolerance`.
void loosen(const TopoDS_Face& face, double tolerance) {
    BRep_Builder builder;
    for (TopExp_Explorer edges(face, TopAbs_EDGE); edges.More(); edges.Next()) {
        const TopoDS_Edge& edge = TopoDS::Edge(edges.Current());
        builder.UpdateEdge(edge, std::max(BRep_Tool::Tolerance(edge), tolerance));
    }
    for (TopExp_Explorer vertices(face, TopAbs_VERTEX); vertices.More(); vertices.Next()) {
        const TopoDS_Vertex& vertex = TopoDS::Vertex(vertices.Current());
        builder.UpdateVertex(vertex, std::max(BRep_Tool::Tolerance(vertex), tolerance));
    }
}

// The face as a B-spline face with its edges: a face that is one already is
// taken as it stands, the others go through the kernel's NURBS conversion.
// The conversion fits each edge's curve in the new surface's parameters to
// the edge's tolerance; files often carry tolerances far finer than any
// rendering needs, which makes the fitting slow. So a copy of the face with
// its tolerances raised to `trimTolerance` is converted.
class FaceConversion {
public:
    FaceConversion(const TopoDS_Face& original, double trimTolerance) : converted_(original) {
        if (isBspline(original)) return;
        copy_.emplace(original);
        const TopoDS_Face copy = TopoDS::Face(copy_->Shape());
        loosen(copy, trimTolerance);
        conversion_.emplace(copy);
        converted_ = TopoDS::Face(conversion_->Shape());
        converted_.Orientation(original.Orientation());
    }
    const TopoDS_Face& face() const { return converted_; }
    TopoDS_Edge edge(const TopoDS_Edge& original) const {
        if (!conversion_) return original;
        TopoDS_Edge image = TopoDS::Edge(conversion_->ModifiedShape(copy_->ModifiedShape(original)));
        image.Orientation(original.Orientation());
        return image;
    }

private:
    std::optional<BRepBuilderAPI_Copy> copy_;
    std::optional<BRepBuilderAPI_NurbsConvert> conversion_;
    TopoDS_Face converted_;
};

// A face converted, with the sides that its edge uses give, in contour order.
struct ConvertedFace {
    ExactSurface surface;
    std::vector<ContourUse> uses;
};

ExactSurface convertFace(const CadFace& face, const CadShapes& shapes, double trimTolerance,
                         std::vector<ContourUse>& faceUses) {
    ExactSurface exact;
    exact.id = face.id;
    const FaceConversion conversion(shapes.face(face.shapeIndex), trimTolerance);
    const TopoDS_Face& converted = conversion.face();
    if (Handle(Geom_BSplineSurface) surface = bsplineOf(converted); !surface.IsNull())
        exact.shape = surfaceData(*surface);
    for (const CadContour& contour : face.contours) {
        EdgeContour& edges = exact.contours.emplace_back();
        edges.traversal = contour.outer ? PRO_CONTOUR_TRAV_EXTERNAL : PRO_CONTOUR_TRAV_INTERNAL;
        std::vector<ContourUse> uses;
        for (const CadEdgeUse& use : contour.edges) {
            edges.edgeIds.push_back(use.edgeId);
            const TopoDS_Edge image = conversion.edge(shapes.edge(use.shapeIndex));
            uses.push_back({use.edgeId, {face.id, use.reversed ? PRO_EDGE_DIRECTION_REVERSED : 0, PRO_ENT_B_SPLINE,
                                         curveOnFace(image, converted)}});
        }
        closeGaps(uses);
        for (ContourUse& use : uses) faceUses.push_back(std::move(use));
    }
    return exact;
}

// A face that the kernel fails to convert stands without shape or curves.
ConvertedFace convertFaceSafely(const CadFace& face, const CadShapes& shapes, double trimTolerance) {
    ConvertedFace converted;
    try {
        converted.surface = convertFace(face, shapes, trimTolerance, converted.uses);
    } catch (const Standard_Failure&) {
        converted = ConvertedFace{ExactSurface{face.id, std::nullopt, {}}, {}};
    }
    return converted;
}

}  // namespace

std::shared_ptr<const InterfaceData> convertToInterfaceData(const CadModel& model, int partIndex) {
    const CadPart& part = model.parts.at(static_cast<size_t>(partIndex));
    auto data = std::make_shared<InterfaceData>();
    SidesById sides;
    std::map<int, size_t> quiltOfId;
    for (const CadQuilt& quilt : part.quilts) {
        quiltOfId[quilt.id] = data->quilts.size();
        data->quilts.push_back({quilt.id, {}});
    }
    const double trimTolerance = trimToleranceShare * part.outline.diagonal();
    // The faces convert side by side, each into its own slot: the kernel's
    // conversion only reads the shapes that the faces share.
    std::vector<ConvertedFace> converted(part.faces.size());
    OSD_Parallel::For(0, static_cast<int>(part.faces.size()),
                      [&](int k) { converted[k] = convertFaceSafely(part.faces[k], *model.shapes, trimTolerance); });
    for (size_t k = 0; k < part.faces.size(); ++k) {
        for (ContourUse& use : converted[k].uses) sides[use.edgeId].push_back(std::move(use.side));
        ExactSurface& exact = converted[k].surface;
        const int quiltId = part.faces[k].quiltId;
        if (quiltId == 0) data->surfaces.push_back(std::move(exact));
        else data->quilts.at(quiltOfId.at(quiltId)).surfaces.push_back(std::move(exact));
    }
    for (const CadEdge& edge : part.edges) {
        ExactEdge& exact = data->edges.emplace_back();
        exact.id = edge.id;
        const std::vector<EdgeSide>& found = sides[edge.id];
        for (size_t side = 0; side < found.size() && side < 2; ++side) exact.sides[side] = found[side];
    }
    return data;
}

}  // namespace host::cad
