// Exports an assembly built in code through the real plug-in library in the
// headless host: vantrel-sample-scene PLUGIN OUT.vnz. The same model gives
// the same bytes whichever system the host and the library are built for.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "host/HostError.h"
#include "host/testing/InterfaceDataBuilder.h"
#include "host/testing/ModelBuilder.h"
#include "host/testing/TestSession.h"
#include "toolkit/ProConstants.h"

namespace {

namespace fs = std::filesystem;
using namespace host::fixtures;

// Two parts, one with exact surfaces and a texture, placed twice in an
// assembly with a saved view. Names are ASCII: a name is narrowed to the
// system code page, which differs between the systems compared.
void buildModel(host::Session& session, host::Model*& top) {
    session.setDefaultAppearance(appearance(u"default", {0.5, 0.5, 0.5}));
    host::Model& bracket = session.addModel(part(u"BRACKET", 3));
    bracket.surfaces[0].appearance = appearance(u"steel", {0.6, 0.6, 0.65}, 0.8, u"Steel");
    bracket.surfaces[2].appearance = appearance(u"paint", {1.0, 0.6, 0.2});
    bracket.surfaces[2].texture = texture("maps/paint.png");
    giveExactSquares(bracket);
    host::Model& plate = session.addModel(part(u"PLATE", 2));
    addFacetSet(plate, 4);
    top = &session.addModel(assembly(u"STAND"));
    addComponent(*top, &bracket, 10, translation(0, 0, 5));
    addComponent(*top, &plate, 11, rotationZ(30.0));
    // A quarter turn about x written out: the C libraries' cosines of 90
    // degrees differ in their last bits, and that is the model, not the export.
    addComponent(*top, &bracket, 12, {{{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}}});
    addView(*top, u"FRONT", translation(1, 2, 3));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: vantrel-sample-scene PLUGIN OUT.vnz\n";
        return 2;
    }
    const fs::path library = fs::absolute(argv[1]);
    const fs::path output = fs::absolute(argv[2]);
    // The plug-in keeps its settings file in the working directory.
    const fs::path work = output.parent_path() / (output.filename().string() + ".work");
    fs::remove_all(work);
    fs::create_directories(work);
    fs::current_path(work);
    try {
        host::Session session;
        host::Model* top = nullptr;
        buildModel(session, top);
        session.setCurrentModel(top);
        session.setMode(PRO_MODE_ASSEMBLY);
        auto plugin = startPlugin(session, library);
        session.script().chooseFile(output.u16string());
        session.script().pressButton("ExportFinished", "ExportOk");
        int status = plugin->press("Vantrel Plugin Export");
        plugin.reset();
        fs::current_path(output.parent_path());
        fs::remove_all(work);
        if (status != 0 || !fs::exists(output)) {
            std::cerr << "the export failed\n";
            return 1;
        }
    } catch (const host::HostError& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
