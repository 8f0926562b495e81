#include "scenetools/XdeDocument.h"

#include <BRep_Builder.hxx>
#include <Image_Texture.hxx>
#include <Poly_Triangulation.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_VisMaterial.hxx>
#include <XCAFDoc_VisMaterialPBR.hxx>
#include <XCAFDoc_VisMaterialTool.hxx>
#include <gp_Trsf.hxx>
#include <map>
#include <tuple>

namespace scenetools {

namespace {

gp_Vec3f vectorAt(const std::vector<float>& xyz, size_t index) {
    return gp_Vec3f(xyz[3 * index], xyz[3 * index + 1], xyz[3 * index + 2]);
}

// Area-weighted vertex normals of the triangles, for meshes that come
// without normals.
std::vector<float> normalsOfTriangles(const Mesh& mesh) {
    std::vector<float> normals(mesh.vertices.size(), 0.0f);
    for (size_t t = 0; t + 2 < mesh.indices.size(); t += 3) {
        const size_t a = mesh.indices[t], b = mesh.indices[t + 1], c = mesh.indices[t + 2];
        const gp_Vec3f pa = vectorAt(mesh.vertices, a);
        const gp_Vec3f n = gp_Vec3f::Cross(vectorAt(mesh.vertices, b) - pa, vectorAt(mesh.vertices, c) - pa);
        for (size_t v : {a, b, c}) {
            for (int i = 0; i < 3; ++i) normals[3 * v + i] += n[i];
        }
    }
    for (size_t v = 0; v < mesh.vertexCount(); ++v) {
        gp_Vec3f n = vectorAt(normals, v);
        if (n.SquareModulus() > 0)
            n.Normalize();
        else
            n = gp_Vec3f(0, 0, 1);
        for (int i = 0; i < 3; ++i) normals[3 * v + i] = n[i];
    }
    return normals;
}

void setName(const TDF_Label& label, const std::string& name) {
    TDataStd_Name::Set(label, TCollection_ExtendedString(name.c_str(), Standard_True));
}

gp_Trsf toTrsf(const Matrix& m) {
    gp_Trsf trsf;
    // gp_Trsf works on column vectors: its rows are the columns of the scene's matrix.
    trsf.SetValues(m[0], m[4], m[8], m[12], m[1], m[5], m[9], m[13], m[2], m[6], m[10], m[14]);
    return trsf;
}

class DocumentBuilder {
public:
    DocumentBuilder(const Handle(TDocStd_Document) & document, std::filesystem::path sceneFolder)
        : shapes_(XCAFDoc_DocumentTool::ShapeTool(document->Main())),
          materials_(XCAFDoc_DocumentTool::VisMaterialTool(document->Main())),
          sceneFolder_(std::move(sceneFolder)) {}

    void addTopLevel(const Scene& scene) {
        for (const Node& child : scene.root.children) addGroup(child, TDF_Label());
        for (const Mesh& mesh : scene.root.meshes) addMesh(mesh, TDF_Label());
        shapes_->UpdateAssemblies();
    }

private:
    // A group under `parent`, or a free shape when `parent` is null.
    void addGroup(const Node& node, const TDF_Label& parent) {
        const TDF_Label assembly = shapes_->NewShape();
        setName(assembly, node.name);
        for (const Mesh& mesh : node.meshes) addMesh(mesh, assembly);
        for (const Node& child : node.children) addGroup(child, assembly);
        place(assembly, parent, node.name, node.transform);
    }

    void addMesh(const Mesh& mesh, const TDF_Label& parent) {
        if (!mesh.drawable()) return;
        const TDF_Label part = shapes_->AddShape(makeMeshFace(mesh), Standard_False);
        setName(part, mesh.name);
        materials_->SetShapeMaterial(part, materialLabel(mesh.material));
        place(part, parent, mesh.name, identityMatrix);
    }

    void place(const TDF_Label& shape, const TDF_Label& parent, const std::string& name, const Matrix& transform) {
        const TopLoc_Location location =
            transform == identityMatrix ? TopLoc_Location() : TopLoc_Location(toTrsf(transform));
        if (parent.IsNull()) {
            // A free shape carries its placement on a one-component assembly.
            if (location.IsIdentity()) return;
            const TDF_Label holder = shapes_->NewShape();
            setName(holder, name);
            setName(shapes_->AddComponent(holder, shape, location), name);
            return;
        }
        setName(shapes_->AddComponent(parent, shape, location), name);
    }

    TDF_Label materialLabel(const Material& material) {
        const std::filesystem::path image = texturePath(material.texture);
        const auto key = std::make_tuple(material.name, material.diffuse, image.string());
        if (auto found = labels_.find(key); found != labels_.end()) return found->second;
        Handle(XCAFDoc_VisMaterial) visMaterial = new XCAFDoc_VisMaterial();
        XCAFDoc_VisMaterialPBR pbr;
        pbr.BaseColor = Quantity_ColorRGBA(material.diffuse[0], material.diffuse[1], material.diffuse[2], 1.0f);
        pbr.Metallic = 0.0f;  // the scene's surfaces are diffuse, not metal
        pbr.Roughness = 1.0f;
        if (!image.empty()) pbr.BaseColorTexture = new Image_Texture(TCollection_AsciiString(image.string().c_str()));
        visMaterial->SetPbrMaterial(pbr);
        visMaterial->SetRawName(new TCollection_HAsciiString(material.name.c_str()));
        const TDF_Label label = materials_->AddMaterial(visMaterial, TCollection_AsciiString(material.name.c_str()));
        labels_.emplace(key, label);
        return label;
    }

    // The image if it is there, relative paths taken from the scene's folder.
    std::filesystem::path texturePath(const std::string& texture) const {
        if (texture.empty()) return {};
        std::filesystem::path path(texture);
        if (path.is_relative()) path = sceneFolder_ / path;
        std::error_code error;
        return std::filesystem::is_regular_file(path, error) ? path : std::filesystem::path();
    }

    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_VisMaterialTool) materials_;
    std::filesystem::path sceneFolder_;
    std::map<std::tuple<std::string, std::array<float, 3>, std::string>, TDF_Label> labels_;
};

}  // namespace

TopoDS_Face makeMeshFace(const Mesh& mesh) {
    const bool hasUvs = !mesh.uvs.empty();
    Handle(Poly_Triangulation) triangulation = new Poly_Triangulation(
        static_cast<int>(mesh.vertexCount()), static_cast<int>(mesh.triangleCount()), hasUvs, Standard_True);
    const std::vector<float> normals = mesh.normals.empty() ? normalsOfTriangles(mesh) : mesh.normals;
    for (size_t v = 0; v < mesh.vertexCount(); ++v) {
        const int node = static_cast<int>(v) + 1;
        triangulation->SetNode(node, gp_Pnt(mesh.vertices[3 * v], mesh.vertices[3 * v + 1], mesh.vertices[3 * v + 2]));
        triangulation->SetNormal(node, vectorAt(normals, v));
        if (hasUvs) triangulation->SetUVNode(node, gp_Pnt2d(mesh.uvs[2 * v], mesh.uvs[2 * v + 1]));
    }
    for (size_t t = 0; t < mesh.triangleCount(); ++t) {
        triangulation->SetTriangle(
            static_cast<int>(t) + 1,
            Poly_Triangle(mesh.indices[3 * t] + 1, mesh.indices[3 * t + 1] + 1, mesh.indices[3 * t + 2] + 1));
    }
    TopoDS_Face face;
    BRep_Builder().MakeFace(face, triangulation);
    return face;
}

Handle(TDocStd_Document) makeXdeDocument(const Scene& scene, const std::filesystem::path& sceneFolder) {
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
    DocumentBuilder(document, sceneFolder).addTopLevel(scene);
    return document;
}

}  // namespace scenetools
