#include "tests/scenetools/GltfReadBack.h"

#include <gtest/gtest.h>

#include <BRep_Tool.hxx>
#include <Message_ProgressRange.hxx>
#include <Poly_Triangulation.hxx>
#include <RWGltf_CafReader.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_VisMaterial.hxx>
#include <XCAFDoc_VisMaterialTool.hxx>

namespace scenetools::testing {

namespace {

std::string nameOf(const TDF_Label& label) {
    Handle(TDataStd_Name) name;
    if (!label.FindAttribute(TDataStd_Name::GetID(), name)) return "?";
    return TCollection_AsciiString(name->Get()).ToCString();
}

class Walker {
public:
    explicit Walker(const Handle(TDocStd_Document) & document)
        : shapes_(XCAFDoc_DocumentTool::ShapeTool(document->Main())),
          materials_(XCAFDoc_DocumentTool::VisMaterialTool(document->Main())) {}

    void walk(const TDF_Label& label, const std::string& name, const TopLoc_Location& location, size_t depth,
              const std::string& parentPath, ReadGltf& result) {
        const std::string path = parentPath.empty() ? name : parentPath + "/" + name;
        result.tree += std::string(2 * depth, ' ') + name + "\n";
        if (XCAFDoc_ShapeTool::IsAssembly(label)) {
            TDF_LabelSequence components;
            XCAFDoc_ShapeTool::GetComponents(label, components);
            for (const TDF_Label& component : components) {
                TDF_Label referred;
                XCAFDoc_ShapeTool::GetReferredShape(component, referred);
                walk(referred, nameOf(component), location * XCAFDoc_ShapeTool::GetLocation(component), depth + 1, path,
                     result);
            }
            return;
        }
        ReadMesh mesh;
        mesh.path = path;
        Handle(XCAFDoc_VisMaterial) material = materials_->GetShapeMaterial(label);
        if (!material.IsNull()) {
            const Quantity_ColorRGBA colour = material->BaseColor();
            mesh.baseColour = {colour.GetRGB().Red(), colour.GetRGB().Green(), colour.GetRGB().Blue()};
            mesh.textured = material->HasPbrMaterial() && !material->PbrMaterial().BaseColorTexture.IsNull();
        }
        const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label).Located(location);
        for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
            TopLoc_Location faceLocation;
            const Handle(Poly_Triangulation) triangulation =
                BRep_Tool::Triangulation(TopoDS::Face(faces.Current()), faceLocation);
            if (triangulation.IsNull()) continue;
            mesh.triangles += triangulation->NbTriangles();
            for (int node = 1; node <= triangulation->NbNodes(); ++node) {
                const gp_Pnt point = triangulation->Node(node).Transformed(faceLocation.Transformation());
                mesh.positions.push_back({point.X(), point.Y(), point.Z()});
            }
        }
        result.meshes.push_back(std::move(mesh));
    }

private:
    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_VisMaterialTool) materials_;
};

}  // namespace

ReadGltf readGltf(const std::filesystem::path& file) {
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
    RWGltf_CafReader reader;
    reader.SetSystemLengthUnit(1.0);
    reader.SetSystemCoordinateSystem(RWMesh_CoordinateSystem_glTF);
    reader.SetDocument(document);
    reader.SetParallel(false);
    ReadGltf result;
    if (!reader.Perform(TCollection_AsciiString(file.string().c_str()), Message_ProgressRange())) {
        ADD_FAILURE() << "the kernel's glTF reader can't read " << file;
        return result;
    }
    TDF_LabelSequence roots;
    XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(roots);
    Walker walker(document);
    for (const TDF_Label& root : roots) walker.walk(root, nameOf(root), TopLoc_Location(), 0, "", result);
    return result;
}

}  // namespace scenetools::testing
