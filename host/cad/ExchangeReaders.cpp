#include "host/cad/ExchangeReaders.h"

#include <IGESCAFControl_Reader.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <RWObj_CafReader.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <STEPControl_Reader.hxx>
#include <TColStd_SequenceOfAsciiString.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XSControl_WorkSession.hxx>

#include "host/cad/CadModel.h"
#include "host/cad/LengthUnits.h"

namespace host::cad {

namespace {

CadLoadError unreadable(const char* format, const std::filesystem::path& path) {
    return CadLoadError(std::string("cannot read ") + format + " file '" + path.string() + "'");
}

// The readers convert lengths into the document's unit: giving the document
// the file's own unit keeps them as the file writes them.
ReadResult keepFileUnit(const std::string& spelling, XdeDocument& document) {
    ReadResult result;
    std::optional<LengthUnit> unit = lengthUnitFromSpelling(spelling);
    if (!unit) {
        result.warnings.push_back("unknown length unit '" + spelling + "': lengths are converted to millimetres");
        unit = millimetreUnit();
    }
    XCAFDoc_DocumentTool::SetLengthUnit(document.get(), unit->millimetres, UnitsMethods_LengthUnit_Millimeter);
    result.unitName = unit->name;
    return result;
}

}  // namespace

ReadResult readStep(const std::filesystem::path& path, XdeDocument& document,
                    const std::optional<StepCodePage>& codePage) {
    const StepCodePage names = codePage ? *codePage : detectStepCodePage(path);
    // The reader takes its code page from this setting when it makes the file's model.
    if (!Interface_Static::SetCVal("read.step.codepage", names.kernelName.c_str())) {
        throw CadLoadError("the kernel's STEP reader doesn't know the code page " + names.displayName);
    }
    STEPCAFControl_Reader reader;
    reader.SetColorMode(Standard_True);
    reader.SetNameMode(Standard_True);
    reader.SetLayerMode(Standard_True);
    reader.SetMatMode(Standard_True);
    if (reader.ReadFile(path.string().c_str()) != IFSelect_RetDone) throw unreadable("STEP", path);
    TColStd_SequenceOfAsciiString lengthUnits, angleUnits, solidAngleUnits;
    reader.ChangeReader().FileUnits(lengthUnits, angleUnits, solidAngleUnits);
    ReadResult result = keepFileUnit(lengthUnits.IsEmpty() ? "" : lengthUnits.First().ToCString(), document);
    result.tessellated = readTessellatedItems(reader.ChangeReader().StepModel(), path);
    Handle(TDocStd_Document) target = document.get();
    // A file of mesh-only items has nothing that the kernel transfers.
    if (!reader.Transfer(target) && result.tessellated.sets.empty()) throw unreadable("STEP", path);
    result.codePage = names;
    return result;
}

ReadResult readIges(const std::filesystem::path& path, XdeDocument& document) {
    IGESCAFControl_Reader reader;
    reader.SetColorMode(Standard_True);
    reader.SetNameMode(Standard_True);
    reader.SetLayerMode(Standard_True);
    if (reader.ReadFile(path.string().c_str()) != IFSelect_RetDone) throw unreadable("IGES", path);
    Handle(IGESData_IGESModel) model = Handle(IGESData_IGESModel)::DownCast(reader.WS()->Model());
    Handle(TCollection_HAsciiString) unitName;
    if (!model.IsNull()) unitName = model->GlobalSection().UnitName();
    ReadResult result = keepFileUnit(unitName.IsNull() ? "" : unitName->ToCString(), document);
    Handle(TDocStd_Document) target = document.get();
    if (!reader.Transfer(target)) throw unreadable("IGES", path);
    return result;
}

// OBJ has no unit: lengths stay as written, taken as millimetres.
ReadResult readObj(const std::filesystem::path& path, XdeDocument& document) {
    RWObj_CafReader reader;
    reader.SetDocument(document.get());
    if (!reader.Perform(path.string().c_str(), Message_ProgressRange())) throw unreadable("OBJ", path);
    ReadResult result;
    result.unitName = millimetreUnit().name;
    return result;
}

}  // namespace host::cad
