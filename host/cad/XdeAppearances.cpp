#include "host/cad/XdeAppearances.h"

#include <Image_Texture.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <TDataStd_TreeNode.hxx>
#include <XCAFDoc.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_Material.hxx>
#include <XCAFDoc_VisMaterial.hxx>

namespace host::cad {

namespace {

CadAppearance fromColourValues(double red, double green, double blue, double alpha) {
    CadAppearance appearance;
    appearance.red = red;
    appearance.green = green;
    appearance.blue = blue;
    appearance.transparency = 1.0 - alpha;
    return appearance;
}

Handle(Image_Texture) colourTexture(const XCAFDoc_VisMaterial& material) {
    if (material.HasCommonMaterial() && !material.CommonMaterial().DiffuseTexture.IsNull()) {
        return material.CommonMaterial().DiffuseTexture;
    }
    if (material.HasPbrMaterial()) return material.PbrMaterial().BaseColorTexture;
    return Handle(Image_Texture)();
}

}  // namespace

XdeAppearances::XdeAppearances(const Handle(TDocStd_Document)& document, std::filesystem::path modelFolder)
    : shapes_(XCAFDoc_DocumentTool::ShapeTool(document->Main())),
      colours_(XCAFDoc_DocumentTool::ColorTool(document->Main())),
      visualMaterials_(XCAFDoc_DocumentTool::VisMaterialTool(document->Main())),
      folder_(std::move(modelFolder)) {}

std::optional<CadAppearance> XdeAppearances::of(const TDF_Label& label) const {
    if (auto appearance = fromVisualMaterial(label)) return appearance;
    const std::string materialName = physicalMaterialName(label);
    std::optional<CadAppearance> appearance = fromColour(label);
    if (!appearance && !materialName.empty()) appearance = CadAppearance{};
    if (appearance) appearance->name = materialName;
    return appearance;
}

std::vector<SubShapeAppearance> XdeAppearances::ofPieces(const TDF_Label& part) const {
    std::vector<SubShapeAppearance> pieces;
    TDF_LabelSequence subShapes;
    shapes_->GetSubShapes(part, subShapes);
    for (const TDF_Label& subShape : subShapes) {
        if (auto appearance = of(subShape)) pieces.push_back({XCAFDoc_ShapeTool::GetShape(subShape), *appearance});
    }
    return pieces;
}

// Visual materials keep linear colours; the files that carry them (an OBJ's
// material library) write the display values, so those are what we report.
std::optional<CadAppearance> XdeAppearances::fromVisualMaterial(const TDF_Label& label) const {
    Handle(XCAFDoc_VisMaterial) material = visualMaterials_->GetShapeMaterial(label);
    if (material.IsNull() || material->IsEmpty()) return std::nullopt;
    const Quantity_ColorRGBA base = material->BaseColor();
    double red, green, blue;
    base.GetRGB().Values(red, green, blue, Quantity_TOC_sRGB);
    CadAppearance appearance = fromColourValues(red, green, blue, base.Alpha());
    if (!material->RawName().IsNull()) appearance.name = material->RawName()->ToCString();
    if (Handle(Image_Texture) texture = colourTexture(*material); !texture.IsNull()) {
        appearance.texturePath = besideModel(texture->FilePath().ToCString());
    }
    return appearance;
}

// The kernel keeps the colours of shapes and faces as linear RGB, converted
// from the values the file writes; a CAD host hands its plug-ins the values
// the user set and the file holds, so they are converted back.
std::optional<CadAppearance> XdeAppearances::fromColour(const TDF_Label& label) const {
    Quantity_ColorRGBA colour;
    if (!colours_->GetColor(label, XCAFDoc_ColorSurf, colour) && !colours_->GetColor(label, XCAFDoc_ColorGen, colour)) {
        return std::nullopt;
    }
    double red, green, blue;
    colour.GetRGB().Values(red, green, blue, Quantity_TOC_sRGB);
    return fromColourValues(red, green, blue, colour.Alpha());
}

std::string XdeAppearances::physicalMaterialName(const TDF_Label& label) const {
    Handle(TDataStd_TreeNode) reference;
    if (!label.FindAttribute(XCAFDoc::MaterialRefGUID(), reference) || !reference->HasFather()) return {};
    Handle(XCAFDoc_Material) material;
    if (!reference->Father()->Label().FindAttribute(XCAFDoc_Material::GetID(), material)) return {};
    Handle(TCollection_HAsciiString) name = material->GetName();
    return name.IsNull() ? std::string() : std::string(name->ToCString());
}

std::string XdeAppearances::besideModel(const std::string& path) const {
    if (path.empty()) return path;
    const std::filesystem::path texture(path);
    if (texture.is_absolute()) return texture.lexically_normal().string();
    return (folder_ / texture).lexically_normal().string();
}

}  // namespace host::cad
