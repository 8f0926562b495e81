// The cost of the exact road: real models (from ../shared/models beside the
// source tree) and a generated assembly of 30 occurrences of six parts
// (planes, cylinders, a cone, a sphere, a torus, holes) exported through the
// plug-in in the headless host with NURBS on and off. Each export runs three times on a freshly loaded model and the
// fastest run counts. Prints the plug-in's run time, the host's meshing
// within it, and what NURBS add (the exact road: the host's conversion to
// B-splines, the trim curves and the writing of the "nurbs" objects), which
// should stay below the meshing.
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <gp_Ax2.hxx>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "host/cad/CadLoader.h"
#include "host/cad/ExchangeReaders.h"
#include "host/cad/XdeDocumentBuilder.h"
#include "host/realmodel/ExportJob.h"

namespace {

struct Run {
    double exporting = 1e300;
    double meshing = 0.0;
    std::size_t nurbsObjects = 0;
};

Run fastestExport(const std::filesystem::path& file, bool nurbs, const std::filesystem::path& folder) {
    Run best;
    for (int attempt = 0; attempt < 3; ++attempt) {
        host::realmodel::ExportRequest request;
        request.model = file;
        request.output = folder / "bench.vnz";
        request.plugin = VANTREL_PLUGIN_FILE;
        request.workdir = folder;
        request.settings.includeNurbs = nurbs;
        // A fresh copy each time: the kernel's meshes and conversions are kept per loaded model.
        auto copy = std::make_shared<const host::cad::CadModel>(host::cad::loadCadModel(file.string()));
        const host::realmodel::ExportReport report = host::realmodel::runExport(request, copy);
        if (report.times.exporting.count() < best.exporting) {
            best = {report.times.exporting.count(), report.times.meshing.count(), report.summary.nurbsObjects};
        }
    }
    return best;
}

TopoDS_Shape plateWithHoles() {
    TopoDS_Shape plate = BRepPrimAPI_MakeBox(40.0, 30.0, 5.0).Shape();
    for (double x : {10.0, 30.0})
        plate = BRepAlgoAPI_Cut(plate, BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(x, 15.0, -1.0), gp::DZ()), 4.0, 7.0).Shape())
                    .Shape();
    return plate;
}

// Six parts, each placed five times along a row of its own.
std::filesystem::path writeGeneratedAssembly(const std::filesystem::path& folder) {
    host::cad::XdeDocumentBuilder builder;
    const std::vector<TDF_Label> parts = {
        builder.addPart("PLATE", plateWithHoles()),
        builder.addPart("PIN", BRepPrimAPI_MakeCylinder(3.0, 20.0).Shape()),
        builder.addPart("TIP", BRepPrimAPI_MakeCone(6.0, 0.0, 10.0).Shape()),
        builder.addPart("BALL", BRepPrimAPI_MakeSphere(5.0).Shape()),
        builder.addPart("RING", BRepPrimAPI_MakeTorus(8.0, 2.0).Shape()),
        builder.addPart("BLOCK", BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape()),
    };
    const TDF_Label top = builder.addAssembly("RIG");
    for (size_t row = 0; row < parts.size(); ++row) {
        for (int column = 0; column < 5; ++column) {
            gp_Trsf placement;
            placement.SetTranslation(gp_Vec(60.0 * column, 60.0 * static_cast<double>(row), 0.0));
            builder.addComponent(top, parts[row], placement);
        }
    }
    const std::filesystem::path path = folder / "rig-30.step";
    builder.writeStep(path.string(), "mm");
    return path;
}

void report(const std::filesystem::path& file, const std::filesystem::path& folder) {
    const Run off = fastestExport(file, false, folder);
    const Run on = fastestExport(file, true, folder);
    const double exact = on.exporting - off.exporting;
    std::printf("%s: without NURBS %.3f s (meshing %.3f s); with NURBS %.3f s (meshing %.3f s), %zu NURBS "
                "objects; the exact road %.3f s, %.2f of the meshing\n",
                file.filename().string().c_str(), off.exporting, off.meshing, on.exporting, on.meshing,
                on.nurbsObjects, exact, off.meshing > 0 ? exact / off.meshing : 0.0);
}

}  // namespace

int main() {
    host::cad::quietKernelMessages();
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "vantrel-nurbs-export-bench";
    std::filesystem::create_directories(folder);
    report(writeGeneratedAssembly(folder), folder);
    const std::filesystem::path models = std::filesystem::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models";
    if (std::filesystem::is_directory(models)) {
        for (const char* name : {"linkrods.step", "as1-oc-214-mat.stp", "screw.step"}) report(models / name, folder);
    } else {
        std::printf("nurbs_export_bench: no models at %s: the generated assembly only\n", models.string().c_str());
    }
    std::filesystem::remove_all(folder);
    return 0;
}
