#include "host/cad/FaceTessellation.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_Copy.hxx>
#include <BRepLProp_SLProps.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <IMeshTools_Parameters.hxx>
#include <OSD_Parallel.hxx>
#include <Poly_Triangulation.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>

#include <cmath>
#include <exception>
#include <sstream>

#include "host/cad/CadShapes.h"

namespace host::cad {

namespace {

// The mesher's own limit on the angle between neighbouring triangles; only
// the chord height comes from the caller.
constexpr double meshAngle = 0.5;

TessellationResult failed(const std::string& why) {
    return TessellationResult{nullptr, why};
}

double faceSize(const TopoDS_Face& face) {
    Bnd_Box box;
    BRepBndLib::Add(face, box, false);
    return box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
}

// Meshes a copy, so that the model's own face keeps no triangulation and every
// chord height is met afresh.
Handle(Poly_Triangulation) meshCopy(const TopoDS_Face& bare, double chordHeight, TopoDS_Face& copy,
                                    TopLoc_Location& meshLocation) {
    copy = TopoDS::Face(BRepBuilderAPI_Copy(bare, Standard_False, Standard_False).Shape());
    IMeshTools_Parameters parameters;
    parameters.Deflection = chordHeight;
    parameters.Angle = meshAngle;
    parameters.Relative = Standard_False;
    parameters.InParallel = Standard_False;
    BRepMesh_IncrementalMesh mesher(copy, parameters);
    return BRep_Tool::Triangulation(copy, meshLocation);
}

// Normals from the surface where it has one; elsewhere (a cone's apex, a
// sphere's pole) the mean of the triangles around the vertex.
std::vector<gp_Vec> vertexNormals(const TopoDS_Face& copy, const Poly_Triangulation& mesh) {
    const int count = mesh.NbNodes();
    std::vector<gp_Vec> normals(count, gp_Vec(0.0, 0.0, 0.0));
    std::vector<bool> fromSurface(count, false);
    BRepAdaptor_Surface surface(copy, Standard_False);
    BRepLProp_SLProps properties(surface, 1, Precision::Confusion());
    for (int i = 0; i < count && mesh.HasUVNodes(); ++i) {
        const gp_Pnt2d uv = mesh.UVNode(i + 1);
        properties.SetParameters(uv.X(), uv.Y());
        if (properties.IsNormalDefined()) {
            normals[i] = properties.Normal();
            fromSurface[i] = true;
        }
    }
    for (int t = 1; t <= mesh.NbTriangles(); ++t) {
        int n[3];
        mesh.Triangle(t).Get(n[0], n[1], n[2]);
        const gp_Vec side1(mesh.Node(n[0]), mesh.Node(n[1]));
        const gp_Vec side2(mesh.Node(n[0]), mesh.Node(n[2]));
        const gp_Vec across = side1.Crossed(side2);
        for (int k : n) {
            if (!fromSurface[k - 1]) normals[k - 1] += across;
        }
    }
    return normals;
}

FaceTessellation collect(const TopoDS_Face& used, const TopoDS_Face& copy, const Poly_Triangulation& mesh,
                         const gp_Trsf& meshPlacement) {
    const bool reversed = used.Orientation() == TopAbs_REVERSED;
    const gp_Trsf placement = used.Location().Transformation() * meshPlacement;
    const std::vector<gp_Vec> normals = vertexNormals(copy, mesh);
    FaceTessellation result;
    result.vertices.reserve(3 * mesh.NbNodes());
    result.normals.reserve(3 * mesh.NbNodes());
    for (int i = 0; i < mesh.NbNodes(); ++i) {
        const gp_Pnt point = mesh.Node(i + 1).Transformed(placement);
        result.vertices.insert(result.vertices.end(), {point.X(), point.Y(), point.Z()});
        gp_Dir normal = gp::DZ();
        if (normals[i].SquareMagnitude() > 0.0) normal = gp_Dir(normals[i]).Transformed(placement);
        if (reversed) normal.Reverse();
        result.normals.insert(result.normals.end(), {normal.X(), normal.Y(), normal.Z()});
        if (mesh.HasUVNodes()) {
            const gp_Pnt2d uv = mesh.UVNode(i + 1);
            result.uvs.insert(result.uvs.end(), {uv.X(), uv.Y()});
        }
    }
    result.triangles.reserve(3 * mesh.NbTriangles());
    for (int t = 1; t <= mesh.NbTriangles(); ++t) {
        int a, b, c;
        mesh.Triangle(t).Get(a, b, c);
        if (reversed) std::swap(b, c);
        result.triangles.insert(result.triangles.end(), {a - 1, b - 1, c - 1});
    }
    return result;
}

TopoDS_Face bareFace(const TopoDS_Face& used) {
    return TopoDS::Face(used.Located(TopLoc_Location()).Oriented(TopAbs_FORWARD));
}

bool fineEnough(const TopoDS_Face& bare, double chordHeight) {
    return chordHeight >= faceSize(bare) * finestRelativeChordHeight;
}

// Meshes made by one run of the mesher, by face index.
using FaceMeshes = std::vector<std::pair<int, TessellationResult>>;

// Meshes every face of the part in [first, last) that has no mesh at this
// chord height yet, all at once with the mesher's parallel run on a copy of
// them: edges that faces share are divided once, and faces are meshed side by
// side. Faces that give no triangles here are left to be meshed alone, which
// says why.
FaceMeshes meshTogether(const CadShapes& shapes, int first, int last, double chordHeight) {
    std::vector<int> indexes;
    TopoDS_Compound bare;
    BRep_Builder builder;
    builder.MakeCompound(bare);
    for (int i = first; i < last; ++i) {
        if (shapes.findTessellation(i, chordHeight)) continue;
        const TopoDS_Face face = bareFace(shapes.face(i));
        if (!fineEnough(face, chordHeight)) continue;
        builder.Add(bare, face);
        indexes.push_back(i);
    }
    FaceMeshes made;
    if (indexes.size() < 2) return made;
    try {
        BRepBuilderAPI_Copy copier(bare, Standard_False, Standard_False);
        IMeshTools_Parameters parameters;
        parameters.Deflection = chordHeight;
        parameters.Angle = meshAngle;
        parameters.Relative = Standard_False;
        parameters.InParallel = Standard_True;
        BRepMesh_IncrementalMesh mesher(copier.Shape(), parameters);
        // The faces' vertices, normals and parameters are gathered side by
        // side as well; each works on its own face and result.
        std::vector<std::shared_ptr<FaceTessellation>> results(indexes.size());
        OSD_Parallel::For(0, static_cast<int>(indexes.size()), [&](int k) {
            const TopoDS_Face& used = shapes.face(indexes[k]);
            const TopoDS_Face copy = TopoDS::Face(copier.ModifiedShape(bareFace(used)));
            TopLoc_Location meshLocation;
            const Handle(Poly_Triangulation) mesh = BRep_Tool::Triangulation(copy, meshLocation);
            if (mesh.IsNull() || mesh->NbTriangles() == 0) return;
            results[k] = std::make_shared<FaceTessellation>(collect(used, copy, *mesh, meshLocation.Transformation()));
        });
        for (size_t k = 0; k < indexes.size(); ++k) {
            if (results[k]) made.emplace_back(indexes[k], TessellationResult{results[k], {}});
        }
    } catch (const Standard_Failure&) {
        // Each face is then meshed alone, which names what failed.
    }
    return made;
}

TessellationResult meshFace(const TopoDS_Face& used, int faceId, double chordHeight) {
    std::ostringstream why;
    const TopoDS_Face bare = bareFace(used);
    const double size = faceSize(bare);
    if (chordHeight < size * finestRelativeChordHeight) {
        why << "chord height " << chordHeight << " is too fine for face " << faceId << " of size " << size;
        return failed(why.str());
    }
    try {
        TopoDS_Face copy;
        TopLoc_Location meshLocation;
        Handle(Poly_Triangulation) mesh = meshCopy(bare, chordHeight, copy, meshLocation);
        if (mesh.IsNull() || mesh->NbTriangles() == 0) {
            why << "the mesher made no triangles for face " << faceId;
            return failed(why.str());
        }
        auto tessellation = std::make_shared<FaceTessellation>(collect(used, copy, *mesh, meshLocation.Transformation()));
        return TessellationResult{std::move(tessellation), {}};
    } catch (const Standard_Failure& failure) {
        why << "meshing face " << faceId << " failed: " << failure.GetMessageString();
    } catch (const std::exception& failure) {
        why << "meshing face " << faceId << " failed: " << failure.what();
    }
    return failed(why.str());
}

}  // namespace

TessellationResult tessellateFace(const CadModel& model, const CadFace& face, double chordHeight) {
    if (!model.shapes || !model.shapes->hasFace(face.shapeIndex)) {
        return failed("face " + std::to_string(face.id) + " has no shape in this model");
    }
    if (!(chordHeight > 0.0) || !std::isfinite(chordHeight)) {
        std::ostringstream why;
        why << "chord height " << chordHeight << " is not a positive length";
        return failed(why.str());
    }
    CadShapes& shapes = *model.shapes;
    if (const TessellationResult* known = shapes.findTessellation(face.shapeIndex, chordHeight)) return *known;
    const auto [first, last] = shapes.partOf(face.shapeIndex);
    for (auto& [index, made] : meshTogether(shapes, first, last, chordHeight))
        shapes.keepTessellation(index, chordHeight, std::move(made));
    if (const TessellationResult* known = shapes.findTessellation(face.shapeIndex, chordHeight)) return *known;
    return shapes.keepTessellation(face.shapeIndex, chordHeight,
                                   meshFace(shapes.face(face.shapeIndex), face.id, chordHeight));
}

// Every part is meshed at the same share of its size as the part asked for,
// the parts side by side: a part made of one large face keeps one core busy
// while the others mesh the rest. Each part's meshes are made into a slot of
// its own and kept once all are done.
void meshModelAhead(const CadModel& model, int partIndex, double chordHeight) {
    const double diagonal = model.parts.at(static_cast<size_t>(partIndex)).outline.diagonal();
    const double share = chordHeight / diagonal;
    if (!model.shapes || !(share > 0.0) || !std::isfinite(share)) return;
    CadShapes& shapes = *model.shapes;
    struct PartMeshes {
        const CadPart* part;
        double chordHeight;
        FaceMeshes made;
    };
    std::vector<PartMeshes> parts;
    for (const CadPart& part : model.parts) {
        const double height = share * part.outline.diagonal();
        if (!part.faces.empty() && height > 0.0) parts.push_back({&part, height, {}});
    }
    OSD_Parallel::For(0, static_cast<int>(parts.size()), [&](int k) {
        PartMeshes& meshes = parts[k];
        const auto [first, last] = shapes.partOf(meshes.part->faces.front().shapeIndex);
        meshes.made = meshTogether(shapes, first, last, meshes.chordHeight);
        std::vector<bool> made(static_cast<size_t>(last - first), false);
        for (const auto& mesh : meshes.made) made[static_cast<size_t>(mesh.first - first)] = true;
        for (const CadFace& face : meshes.part->faces) {
            if (!made[static_cast<size_t>(face.shapeIndex - first)] &&
                !shapes.findTessellation(face.shapeIndex, meshes.chordHeight))
                meshes.made.emplace_back(face.shapeIndex,
                                         meshFace(shapes.face(face.shapeIndex), face.id, meshes.chordHeight));
        }
    });
    for (PartMeshes& meshes : parts) {
        for (auto& [index, made] : meshes.made) shapes.keepTessellation(index, meshes.chordHeight, std::move(made));
    }
}

}  // namespace host::cad
