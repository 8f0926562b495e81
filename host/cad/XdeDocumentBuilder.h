#pragma once
// Builds an XDE document of named parts and assemblies, with colours, material
// names, layers and hidden shapes, and writes it as STEP or IGES. The sample
// model is made with it, and so are the tests' models.
#include <TDF_Label.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <XCAFDoc_MaterialTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp_Trsf.hxx>

#include <string>

#include "host/cad/XdeDocument.h"

namespace host::cad {

class XdeDocumentBuilder {
public:
    XdeDocumentBuilder();

    TDF_Label addPart(const std::string& name, const TopoDS_Shape& shape);
    TDF_Label addAssembly(const std::string& name);
    TDF_Label addComponent(const TDF_Label& assembly, const TDF_Label& model, const gp_Trsf& placement);

    void setColour(const TDF_Label& label, double red, double green, double blue);
    void setFaceColour(const TDF_Label& part, const TopoDS_Shape& face, double red, double green, double blue);
    void setMaterialName(const TDF_Label& label, const std::string& name);
    void hide(const TDF_Label& label);
    void putOnLayer(const TDF_Label& label, const std::string& layer, bool layerVisible);

    // The shapes' numbers are lengths in `unitName` ("mm", "in", ...); the file
    // says so. Throws std::runtime_error if the file can't be written.
    void writeStep(const std::string& path, const std::string& unitName);
    void writeIges(const std::string& path);

    const XdeDocument& document() const { return document_; }

private:
    XdeDocument document_;
    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_ColorTool) colours_;
    Handle(XCAFDoc_LayerTool) layers_;
    Handle(XCAFDoc_MaterialTool) materials_;
};

}  // namespace host::cad
