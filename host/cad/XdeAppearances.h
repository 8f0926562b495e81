#pragma once
// The appearances that an XDE document gives its shapes: visual materials,
// colours and the names of physical materials.
#include <TDF_Label.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_VisMaterialTool.hxx>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/cad/CadModel.h"
#include "host/cad/PartBuilder.h"

namespace host::cad {

class XdeAppearances {
public:
    // Relative texture paths are taken as lying in `modelFolder`.
    XdeAppearances(const Handle(TDocStd_Document)& document, std::filesystem::path modelFolder);

    // A label's own appearance. A visual material gives name, colour,
    // transparency and texture. Otherwise a surface colour (or, failing that,
    // a generic one) gives the colour, named after the label's physical
    // material if it has one. A physical material alone names the default grey.
    std::optional<CadAppearance> of(const TDF_Label& label) const;

    // The appearances of the sub-shapes that the document keeps for a part.
    std::vector<SubShapeAppearance> ofPieces(const TDF_Label& part) const;

private:
    std::optional<CadAppearance> fromVisualMaterial(const TDF_Label& label) const;
    std::optional<CadAppearance> fromColour(const TDF_Label& label) const;
    std::string physicalMaterialName(const TDF_Label& label) const;
    std::string besideModel(const std::string& path) const;

    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_ColorTool) colours_;
    Handle(XCAFDoc_VisMaterialTool) visualMaterials_;
    std::filesystem::path folder_;
};

}  // namespace host::cad
