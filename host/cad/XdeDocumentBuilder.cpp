#include "host/cad/XdeDocumentBuilder.h"

#include <IGESCAFControl_Writer.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <TDataStd_Name.hxx>
#include <UnitsMethods.hxx>
#include <XCAFDoc_DocumentTool.hxx>

#include <stdexcept>

#include "host/cad/LengthUnits.h"

namespace host::cad {

namespace {

// The values given are those the file is to hold: the kernel keeps colours
// as linear RGB and its writers convert them back to the file's values.
Quantity_Color rgb(double red, double green, double blue) {
    return Quantity_Color(red, green, blue, Quantity_TOC_sRGB);
}

std::runtime_error unwritable(const char* format, const std::string& path) {
    return std::runtime_error(std::string("cannot write ") + format + " file '" + path + "'");
}

}  // namespace

XdeDocumentBuilder::XdeDocumentBuilder()
    : shapes_(XCAFDoc_DocumentTool::ShapeTool(document_.get()->Main())),
      colours_(XCAFDoc_DocumentTool::ColorTool(document_.get()->Main())),
      layers_(XCAFDoc_DocumentTool::LayerTool(document_.get()->Main())),
      materials_(XCAFDoc_DocumentTool::MaterialTool(document_.get()->Main())) {}

TDF_Label XdeDocumentBuilder::addPart(const std::string& name, const TopoDS_Shape& shape) {
    TDF_Label label = shapes_->AddShape(shape, Standard_False);
    TDataStd_Name::Set(label, name.c_str());
    return label;
}

TDF_Label XdeDocumentBuilder::addAssembly(const std::string& name) {
    TDF_Label label = shapes_->NewShape();
    TDataStd_Name::Set(label, name.c_str());
    return label;
}

TDF_Label XdeDocumentBuilder::addComponent(const TDF_Label& assembly, const TDF_Label& model, const gp_Trsf& placement) {
    return shapes_->AddComponent(assembly, model, TopLoc_Location(placement));
}

void XdeDocumentBuilder::setColour(const TDF_Label& label, double red, double green, double blue) {
    colours_->SetColor(label, rgb(red, green, blue), XCAFDoc_ColorSurf);
}

void XdeDocumentBuilder::setFaceColour(const TDF_Label& part, const TopoDS_Shape& face, double red, double green,
                                       double blue) {
    colours_->SetColor(shapes_->AddSubShape(part, face), rgb(red, green, blue), XCAFDoc_ColorSurf);
}

void XdeDocumentBuilder::setMaterialName(const TDF_Label& label, const std::string& name) {
    materials_->SetMaterial(label, new TCollection_HAsciiString(name.c_str()), new TCollection_HAsciiString(""), 1.0,
                            new TCollection_HAsciiString("density"), new TCollection_HAsciiString("POSITIVE_RATIO_MEASURE"));
}

void XdeDocumentBuilder::hide(const TDF_Label& label) {
    colours_->SetVisibility(label, Standard_False);
}

void XdeDocumentBuilder::putOnLayer(const TDF_Label& label, const std::string& layer, bool layerVisible) {
    TDF_Label layerLabel = layers_->AddLayer(layer.c_str());
    layers_->SetVisibility(layerLabel, layerVisible);
    layers_->SetLayer(label, layerLabel);
}

// The writer takes its unit when it is made, so the setting comes first, and
// goes back afterwards since it is shared by the whole process.
void XdeDocumentBuilder::writeStep(const std::string& path, const std::string& unitName) {
    const std::optional<LengthUnit> unit = lengthUnitFromSpelling(unitName);
    if (!unit) throw std::invalid_argument("unknown length unit '" + unitName + "'");
    shapes_->UpdateAssemblies();
    XCAFDoc_DocumentTool::SetLengthUnit(document_.get(), unit->millimetres, UnitsMethods_LengthUnit_Millimeter);
    STEPCAFControl_Controller::Init();
    const int previousUnit = Interface_Static::IVal("write.step.unit");
    Interface_Static::SetIVal("write.step.unit",
                              UnitsMethods::GetLengthUnitByFactorValue(unit->millimetres, UnitsMethods_LengthUnit_Millimeter));
    STEPCAFControl_Writer writer;
    writer.SetColorMode(Standard_True);
    writer.SetNameMode(Standard_True);
    writer.SetLayerMode(Standard_True);
    writer.SetMaterialMode(Standard_True);
    const bool written = writer.Transfer(document_.get(), STEPControl_AsIs) &&
                         writer.Write(path.c_str()) == IFSelect_RetDone;
    Interface_Static::SetIVal("write.step.unit", previousUnit);
    if (!written) throw unwritable("STEP", path);
}

void XdeDocumentBuilder::writeIges(const std::string& path) {
    shapes_->UpdateAssemblies();
    IGESCAFControl_Writer writer;
    writer.SetColorMode(Standard_True);
    writer.SetNameMode(Standard_True);
    writer.SetLayerMode(Standard_True);
    if (!writer.Transfer(document_.get()) || !writer.Write(path.c_str())) throw unwritable("IGES", path);
}

}  // namespace host::cad
