#include "host/cad/FaceContours.h"

#include <BRepTools.hxx>
#include <BRepTools_WireExplorer.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_DataMapOfShapeInteger.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Wire.hxx>

#include <algorithm>
#include <set>
#include <vector>

#include "host/cad/CadShapes.h"

namespace host::cad {

namespace {

int largestId(const CadPart& part) {
    int largest = 0;
    for (const CadFace& face : part.faces) largest = std::max(largest, face.id);
    for (const CadEdge& edge : part.edges) largest = std::max(largest, edge.id);
    for (const CadQuilt& quilt : part.quilts) largest = std::max(largest, quilt.id);
    return largest;
}

// The wires of a face, the outer one first.
std::vector<TopoDS_Wire> wiresOf(const TopoDS_Face& face) {
    std::vector<TopoDS_Wire> wires;
    const TopoDS_Wire outer = BRepTools::OuterWire(face);
    if (!outer.IsNull()) wires.push_back(outer);
    for (TopExp_Explorer explorer(face, TopAbs_WIRE); explorer.More(); explorer.Next()) {
        if (outer.IsNull() || !explorer.Current().IsSame(outer)) wires.push_back(TopoDS::Wire(explorer.Current()));
    }
    return wires;
}

// The edges of a wire in the order it runs; where the kernel can't order
// them (a wire that doesn't connect), in the order it stores them.
std::vector<TopoDS_Edge> edgesInOrder(const TopoDS_Wire& wire, const TopoDS_Face& face) {
    std::vector<TopoDS_Edge> ordered, stored;
    for (BRepTools_WireExplorer explorer(wire, face); explorer.More(); explorer.Next()) ordered.push_back(explorer.Current());
    for (TopExp_Explorer explorer(wire, TopAbs_EDGE); explorer.More(); explorer.Next())
        stored.push_back(TopoDS::Edge(explorer.Current()));
    return ordered.size() == stored.size() ? ordered : stored;
}

class ContourWalk {
public:
    ContourWalk(CadPart& part, CadShapes& shapes) : part_(part), shapes_(shapes), nextId_(largestId(part) + 1) {
        for (const CadEdge& edge : part.edges) idOfEdge_.Bind(shapes.edge(edge.shapeIndex), edge.id);
    }

    void walk(CadFace& face) {
        const TopoDS_Face& shape = shapes_.face(face.shapeIndex);
        std::set<int> usedHere;
        bool outer = true;
        for (const TopoDS_Wire& wire : wiresOf(shape)) {
            CadContour contour{outer, {}};
            outer = false;
            for (const TopoDS_Edge& edge : edgesInOrder(wire, shape)) {
                int id = idOf(edge, face.id);
                // A seam's second use in the face stands as an edge of its own.
                if (!usedHere.insert(id).second) id = addEdge(edge, face.id);
                contour.edges.push_back({id, edge.Orientation() == TopAbs_REVERSED, shapes_.addEdge(edge)});
            }
            face.contours.push_back(std::move(contour));
        }
    }

private:
    int idOf(const TopoDS_Edge& edge, int faceId) {
        if (idOfEdge_.IsBound(edge)) return idOfEdge_(edge);
        const int id = addEdge(edge, faceId);  // a degenerate edge
        idOfEdge_.Bind(edge, id);
        return id;
    }

    int addEdge(const TopoDS_Edge& edge, int faceId) {
        const int id = nextId_++;
        part_.edges.push_back(CadEdge{id, {faceId}, shapes_.addEdge(edge)});
        return id;
    }

    CadPart& part_;
    CadShapes& shapes_;
    int nextId_;
    TopTools_DataMapOfShapeInteger idOfEdge_;
};

}  // namespace

void addFaceContours(CadPart& part, CadShapes& shapes) {
    ContourWalk walk(part, shapes);
    for (CadFace& face : part.faces) walk.walk(face);
}

}  // namespace host::cad
