#include "host/cad/PartBuilder.h"

#include <BRepBndLib.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedDataMapOfShapeListOfShape.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>

#include <algorithm>

#include "host/cad/CadShapes.h"
#include "host/cad/FaceContours.h"
#include "host/cad/MeshFacets.h"

namespace host::cad {

namespace {

// What the walk of one part keeps: the faces by their place in the shape's
// face map, and the next free id.
struct PartWalk {
    TopTools_IndexedMapOfShape faceMap;
    std::vector<int> faceSlot;  // face map index -> index into CadPart::faces, or -1
    int nextId = 1;
};

// Appearances by face map index: those given to whole pieces first, so that a
// face's own appearance wins.
std::vector<std::optional<CadAppearance>> faceAppearances(const TopTools_IndexedMapOfShape& faceMap,
                                                          const std::vector<SubShapeAppearance>& pieces) {
    std::vector<std::optional<CadAppearance>> result(faceMap.Extent() + 1);
    for (bool facesOnly : {false, true}) {
        for (const SubShapeAppearance& piece : pieces) {
            if ((piece.shape.ShapeType() == TopAbs_FACE) != facesOnly) continue;
            for (TopExp_Explorer faces(piece.shape, TopAbs_FACE); faces.More(); faces.Next()) {
                const int index = faceMap.FindIndex(faces.Current());
                if (index > 0) result[index] = piece.appearance;
            }
        }
    }
    return result;
}

std::optional<CadAppearance> addFaces(PartWalk& walk, const std::vector<SubShapeAppearance>& pieces, CadPart& part,
                                      CadShapes& shapes) {
    const auto appearances = faceAppearances(walk.faceMap, pieces);
    std::optional<CadAppearance> firstMeshAppearance;
    walk.faceSlot.assign(walk.faceMap.Extent() + 1, -1);
    for (int i = 1; i <= walk.faceMap.Extent(); ++i) {
        const TopoDS_Face& face = TopoDS::Face(walk.faceMap(i));
        const bool reversed = face.Orientation() == TopAbs_REVERSED;
        TopLoc_Location location;
        if (!BRep_Tool::Surface(face, location).IsNull()) {
            walk.faceSlot[i] = static_cast<int>(part.faces.size());
            part.faces.push_back(CadFace{walk.nextId++, reversed, 0, shapes.addFace(face), appearances[i], {}});
        } else if (Handle(Poly_Triangulation) mesh = BRep_Tool::Triangulation(face, location); !mesh.IsNull()) {
            appendFacets(*mesh, location.Transformation(), reversed, part.facets);
            if (!firstMeshAppearance) firstMeshAppearance = appearances[i];
        }
    }
    return firstMeshAppearance;
}

void addEdges(const TopoDS_Shape& shape, PartWalk& walk, CadPart& part, CadShapes& shapes) {
    TopTools_IndexedDataMapOfShapeListOfShape facesOfEdge;
    TopExp::MapShapesAndUniqueAncestors(shape, TopAbs_EDGE, TopAbs_FACE, facesOfEdge);
    for (int i = 1; i <= facesOfEdge.Extent(); ++i) {
        const TopoDS_Edge& edge = TopoDS::Edge(facesOfEdge.FindKey(i));
        if (BRep_Tool::Degenerated(edge)) continue;
        CadEdge described{0, {}, -1};
        for (const TopoDS_Shape& face : facesOfEdge(i)) {
            const int slot = walk.faceSlot[walk.faceMap.FindIndex(face)];
            if (slot < 0) continue;
            const int faceId = part.faces[slot].id;
            if (std::find(described.faceIds.begin(), described.faceIds.end(), faceId) == described.faceIds.end()) {
                described.faceIds.push_back(faceId);
            }
        }
        if (described.faceIds.empty()) continue;
        described.id = walk.nextId++;
        described.shapeIndex = shapes.addEdge(edge);
        part.edges.push_back(std::move(described));
    }
}

// Gathers into one new quilt the faces under `container` that no solid and no
// earlier quilt holds.
void addQuilt(const TopoDS_Shape& container, TopAbs_ShapeEnum avoided, PartWalk& walk, CadPart& part) {
    CadQuilt quilt{walk.nextId, {}};
    for (TopExp_Explorer faces(container, TopAbs_FACE, avoided); faces.More(); faces.Next()) {
        const int slot = walk.faceSlot[walk.faceMap.FindIndex(faces.Current())];
        if (slot < 0 || part.faces[slot].quiltId != 0) continue;
        part.faces[slot].quiltId = quilt.id;
        quilt.faceIds.push_back(part.faces[slot].id);
    }
    if (quilt.faceIds.empty()) return;
    ++walk.nextId;
    part.quilts.push_back(std::move(quilt));
}

// A shell outside any solid is a quilt; faces outside any shell make one more.
void addQuilts(const TopoDS_Shape& shape, PartWalk& walk, CadPart& part) {
    for (TopExp_Explorer shells(shape, TopAbs_SHELL, TopAbs_SOLID); shells.More(); shells.Next()) {
        addQuilt(shells.Current(), TopAbs_SOLID, walk, part);
    }
    addQuilt(shape, TopAbs_SHELL, walk, part);
}

void addToOutline(Outline& outline, Bnd_Box& box) {
    if (box.IsVoid()) return;
    box.SetGap(0.0);
    double xMin, yMin, zMin, xMax, yMax, zMax;
    box.Get(xMin, yMin, zMin, xMax, yMax, zMax);
    outline.add({xMin, yMin, zMin});
    outline.add({xMax, yMax, zMax});
}

void addFacets(Outline& outline, const std::vector<Facet>& facets) {
    for (const Facet& facet : facets) {
        for (const auto& point : facet.points) outline.add(point);
    }
}

// A box that surely holds the faces, quick to find; for free-form faces it may
// stand a little off them, as it follows their control points.
Outline outlineOfPart(const CadPart& part, const CadShapes& shapes) {
    Outline outline;
    for (const CadFace& face : part.faces) {
        Bnd_Box box;
        BRepBndLib::Add(shapes.face(face.shapeIndex), box, Standard_False);
        addToOutline(outline, box);
    }
    addFacets(outline, part.facets);
    return outline;
}

}  // namespace

CadPart buildPart(const std::string& name, const TopoDS_Shape& shape, std::optional<CadAppearance> appearance,
                  const std::vector<SubShapeAppearance>& pieces, CadShapes& shapes) {
    CadPart part;
    part.name = name;
    part.appearance = std::move(appearance);
    if (shape.IsNull()) return part;
    PartWalk walk;
    TopExp::MapShapes(shape, TopAbs_FACE, walk.faceMap);
    const int firstFace = shapes.faceCount();
    std::optional<CadAppearance> meshAppearance = addFaces(walk, pieces, part, shapes);
    shapes.closePart(firstFace);
    addEdges(shape, walk, part, shapes);
    addQuilts(shape, walk, part);
    addFaceContours(part, shapes);
    if (!part.appearance && part.faces.empty()) part.appearance = meshAppearance;
    part.outline = outlineOfPart(part, shapes);
    return part;
}

CadPart buildFacetPart(const std::string& name, std::vector<Facet> facets) {
    CadPart part;
    part.name = name;
    part.facets = std::move(facets);
    addFacets(part.outline, part.facets);
    return part;
}

}  // namespace host::cad
