#include "host/cad/SampleModel.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRep_Builder.hxx>
#include <Bnd_Box.hxx>
#include <GeomAPI_PointsToBSplineSurface.hxx>
#include <Geom_BSplineSurface.hxx>
#include <StlAPI_Writer.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>

#include <cmath>
#include <filesystem>
#include <stdexcept>

#include "host/cad/XdeDocumentBuilder.h"

namespace host::cad {

namespace {

constexpr double plateLength = 100.0;
constexpr double plateWidth = 60.0;
constexpr double plateThickness = 10.0;
constexpr double holeRadius = 8.0;
const gp_Pnt holeCentres[] = {gp_Pnt(25.0, 30.0, 0.0), gp_Pnt(75.0, 30.0, 0.0)};

TopoDS_Shape plateWithHoles() {
    TopoDS_Shape plate = BRepPrimAPI_MakeBox(plateLength, plateWidth, plateThickness).Shape();
    for (const gp_Pnt& centre : holeCentres) {
        gp_Ax2 axis(gp_Pnt(centre.X(), centre.Y(), -1.0), gp::DZ());
        plate = BRepAlgoAPI_Cut(plate, BRepPrimAPI_MakeCylinder(axis, holeRadius, plateThickness + 2.0).Shape()).Shape();
    }
    return plate;
}

// The face that lies in the plate's top plane: it has the two holes.
TopoDS_Shape topFace(const TopoDS_Shape& plate) {
    for (TopExp_Explorer faces(plate, TopAbs_FACE); faces.More(); faces.Next()) {
        Bnd_Box box;
        BRepBndLib::AddOptimal(faces.Current(), box, Standard_False, Standard_False);
        if (box.CornerMin().Z() > plateThickness - 1e-6) return faces.Current();
    }
    throw std::logic_error("the plate has no top face");
}

TopoDS_Shape bolt() {
    TopoDS_Shape shank = BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(0, 0, -14), gp::DZ()), 6.0, 30.0).Shape();
    TopoDS_Shape head = BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(0, 0, plateThickness), gp::DZ()), 11.0, 6.0).Shape();
    return BRepAlgoAPI_Fuse(shank, head).Shape();
}

// A sheet over the plate whose height waves in both directions.
TopoDS_Shape waveSheet() {
    TColgp_Array2OfPnt points(1, 9, 1, 7);
    for (int i = 1; i <= 9; ++i) {
        for (int j = 1; j <= 7; ++j) {
            const double x = plateLength * (i - 1) / 8.0;
            const double y = plateWidth * (j - 1) / 6.0;
            points(i, j) = gp_Pnt(x, y, 6.0 * std::sin(2.0 * M_PI * x / plateLength) * std::cos(M_PI * y / plateWidth));
        }
    }
    Handle(Geom_BSplineSurface) surface = GeomAPI_PointsToBSplineSurface(points).Surface();
    return BRepBuilderAPI_MakeFace(surface, 1e-6).Shape();
}

void writeMesh(const std::filesystem::path& path) {
    TopoDS_Shape ring = BRepPrimAPI_MakeTorus(18.0, 5.0).Shape();
    BRepMesh_IncrementalMesh mesher(ring, 0.5);
    StlAPI_Writer writer;
    writer.ASCIIMode() = Standard_False;
    if (!writer.Write(ring, path.string().c_str())) {
        throw std::runtime_error("cannot write STL file '" + path.string() + "'");
    }
}

gp_Trsf translation(double x, double y, double z) {
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(x, y, z));
    return placement;
}

}  // namespace

SampleFiles writeSampleStep(const std::string& path) {
    const std::filesystem::path stepPath(path);
    std::filesystem::path meshPath = stepPath;
    meshPath.replace_filename(stepPath.stem().string() + "-mesh.stl");
    writeMesh(meshPath);

    XdeDocumentBuilder builder;
    const TopoDS_Shape plateShape = plateWithHoles();
    const TDF_Label plate = builder.addPart("PLATE", plateShape);
    builder.setColour(plate, 0.72, 0.45, 0.20);
    builder.setMaterialName(plate, "Bronze");
    builder.setFaceColour(plate, topFace(plateShape), 0.85, 0.85, 0.80);

    const TDF_Label boltPart = builder.addPart("BOLT", bolt());
    builder.setColour(boltPart, 0.60, 0.62, 0.66);
    builder.setMaterialName(boltPart, "Steel");
    const TDF_Label pair = builder.addAssembly("BOLT_PAIR");
    builder.addComponent(pair, boltPart, translation(holeCentres[0].X(), holeCentres[0].Y(), 0.0));
    gp_Trsf turned;
    turned.SetRotation(gp_Ax1(gp::Origin(), gp::DZ()), M_PI / 2.0);
    turned.SetTranslationPart(gp_Vec(holeCentres[1].X(), holeCentres[1].Y(), 0.0));
    builder.addComponent(pair, boltPart, turned);

    const TDF_Label wave = builder.addPart("WAVE", waveSheet());
    builder.setColour(wave, 0.20, 0.50, 0.90);
    builder.setMaterialName(wave, "Glass");

    TopoDS_Compound empty;
    BRep_Builder().MakeCompound(empty);
    const TDF_Label mesh = builder.addPart(meshPath.filename().string(), empty);
    const TDF_Label top = builder.addAssembly("SAMPLE");
    builder.addComponent(top, plate, gp_Trsf());
    builder.addComponent(top, pair, gp_Trsf());
    builder.addComponent(top, wave, translation(0.0, 0.0, 40.0));
    builder.addComponent(top, mesh, translation(150.0, 30.0, 5.0));
    builder.writeStep(stepPath.string(), "mm");
    return SampleFiles{stepPath.string(), meshPath.string()};
}

}  // namespace host::cad
