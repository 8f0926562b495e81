#include "MadeModels.h"

#include <BRepPrimAPI_MakeBox.hxx>

#include "host/cad/XdeDocumentBuilder.h"

namespace host::realmodel::testing {

namespace {

gp_Trsf movedAlongX(double x) {
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(x, 0.0, 0.0));
    return placement;
}

}  // namespace

void writeCubesWithHiddenOnes(const std::string& path) {
    cad::XdeDocumentBuilder builder;
    // Parts of one shape would be one product in the file: each gets its own.
    auto cube = [](double size) { return BRepPrimAPI_MakeBox(size, size, size).Shape(); };
    const TDF_Label shown = builder.addPart("SHOWN_CUBE", cube(1.0));
    const TDF_Label onHiddenLayer = builder.addPart("HIDDEN_LAYER_CUBE", cube(1.1));
    const TDF_Label plain = builder.addPart("PLAIN_CUBE", cube(1.2));
    builder.putOnLayer(shown, "SHOWN", true);
    builder.putOnLayer(onHiddenLayer, "CONSTRUCTION", false);
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, shown, movedAlongX(0.0));
    builder.addComponent(top, onHiddenLayer, movedAlongX(2.0));
    // The file keeps an occurrence's visibility only with a style: a colour.
    const TDF_Label hidden = builder.addComponent(top, plain, movedAlongX(4.0));
    builder.setColour(hidden, 0.0, 1.0, 0.0);
    builder.hide(hidden);
    builder.writeStep(path, "mm");
}

}  // namespace host::realmodel::testing
