#include "bench/GeneratedAssembly.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <BRep_Builder.hxx>

#include <utility>

#include "host/cad/XdeDocumentBuilder.h"

void writeGeneratedAssembly(const std::filesystem::path& path) {
    TopoDS_Shape plate = BRepPrimAPI_MakeBox(80.0, 60.0, 10.0).Shape();
    for (int hole = 0; hole < 6; ++hole) {
        gp_Ax2 axis(gp_Pnt(12.0 + 11.0 * hole, 30.0, -1.0), gp::DZ());
        plate = BRepAlgoAPI_Cut(plate, BRepPrimAPI_MakeCylinder(axis, 3.0 + hole * 0.5, 12.0).Shape()).Shape();
    }
    const TopoDS_Shape block = BRepPrimAPI_MakeBox(40.0, 30.0, 20.0).Shape();
    BRepFilletAPI_MakeFillet rounded(block);
    TopTools_IndexedMapOfShape edges;
    TopExp::MapShapes(block, TopAbs_EDGE, edges);
    for (int i = 1; i <= edges.Extent(); ++i) rounded.Add(3.0, TopoDS::Edge(edges(i)));
    const std::pair<const char*, TopoDS_Shape> parts[] = {
        {"PLATE", plate},
        {"BLOCK", rounded.Shape()},
        {"PIN", BRepPrimAPI_MakeCylinder(4.0, 40.0).Shape()},
        {"TIP", BRepPrimAPI_MakeCone(6.0, 1.0, 12.0).Shape()},
        {"BALL", BRepPrimAPI_MakeSphere(9.0).Shape()},
        {"RING", BRepPrimAPI_MakeTorus(15.0, 3.0).Shape()},
    };
    host::cad::XdeDocumentBuilder builder;
    const TDF_Label top = builder.addAssembly("GENERATED");
    int slot = 0;
    for (const auto& [name, shape] : parts) {
        const TDF_Label part = builder.addPart(name, shape);
        for (int copy = 0; copy < 5; ++copy, ++slot) {
            gp_Trsf placement;
            placement.SetTranslation(gp_Vec(100.0 * (slot % 6), 100.0 * (slot / 6), 0.0));
            builder.addComponent(top, part, placement);
        }
    }
    builder.writeStep(path.string(), "mm");
}

void writeScaleAssembly(const std::filesystem::path& path, const ScaleAssembly& size) {
    host::cad::XdeDocumentBuilder builder;
    const TDF_Label top = builder.addAssembly("SCALE");
    BRep_Builder shapes;
    int slot = 0;
    for (int part = 0; part < size.parts; ++part) {
        // A row of boxes whose sizes differ from part to part.
        TopoDS_Compound boxes;
        shapes.MakeCompound(boxes);
        for (int box = 0; box < size.boxesPerPart; ++box) {
            const gp_Pnt corner(3.0 * (box % 10), 3.0 * (box / 10), 0.0);
            shapes.Add(boxes, BRepPrimAPI_MakeBox(corner, 1.0 + 0.02 * part, 2.0, 0.5 + 0.01 * box).Shape());
        }
        const TDF_Label label = builder.addPart("PART" + std::to_string(part), boxes);
        for (int copy = 0; copy < size.copiesPerPart; ++copy, ++slot) {
            gp_Trsf placement;
            placement.SetTranslation(gp_Vec(40.0 * (slot % 100), 40.0 * (slot / 100), 0.0));
            builder.addComponent(top, label, placement);
        }
    }
    builder.writeStep(path.string(), "mm");
}
