#include "host/cad/CadLoader.h"

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <TopoDS_Shape.hxx>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

#include "host/cad/CadShapes.h"
#include "host/cad/ExchangeReaders.h"
#include "host/cad/LengthUnits.h"
#include "host/cad/MeshFacets.h"
#include "host/cad/PartBuilder.h"
#include "host/cad/XdeModelReader.h"

namespace host::cad {

namespace {

namespace fs = std::filesystem;

std::string quoted(const fs::path& path) {
    return "'" + path.string() + "'";
}

void checkReadable(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) throw CadLoadError("CAD model file " + quoted(path) + " does not exist");
    if (fs::is_directory(status)) throw CadLoadError(quoted(path) + " is a folder, not a CAD model file");
    if (!std::ifstream(path, std::ios::binary)) throw CadLoadError("CAD model file " + quoted(path) + " cannot be read");
}

std::string lowerExtension(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

template <typename Read>
CadModel loadDocument(const fs::path& path, Read read) {
    XdeDocument document;
    ReadResult result = read(path, document);
    CadModel model = describeDocument(document.get(), ModelSource{path, result.unitName});
    model.warnings.insert(model.warnings.begin(), result.warnings.begin(), result.warnings.end());
    model.nameCodePage = result.codePage;
    addTessellatedSets(std::move(result.tessellated), model);
    return model;
}

CadModel singlePart(const fs::path& path, CadPart part, std::shared_ptr<CadShapes> shapes) {
    CadModel model;
    model.sourcePath = path.string();
    model.unitName = millimetreUnit().name;
    model.parts.push_back(std::move(part));
    model.top = NodeRef{NodeKind::part, 0};
    model.shapes = std::move(shapes);
    return model;
}

CadModel loadBrep(const fs::path& path) {
    TopoDS_Shape shape;
    BRep_Builder builder;
    if (!BRepTools::Read(shape, path.string().c_str(), builder)) {
        throw CadLoadError("cannot read BREP file " + quoted(path));
    }
    auto shapes = std::make_shared<CadShapes>();
    CadPart part = buildPart(path.stem().string(), shape, std::nullopt, {}, *shapes);
    return singlePart(path, std::move(part), std::move(shapes));
}

CadModel loadStl(const fs::path& path) {
    return singlePart(path, buildFacetPart(path.stem().string(), readStlFacets(path.string())),
                      std::make_shared<CadShapes>());
}

CadModel loadByExtension(const fs::path& path, const LoadOptions& options) {
    const std::string extension = lowerExtension(path);
    if (extension == ".step" || extension == ".stp") {
        return loadDocument(path, [&options](const fs::path& file, XdeDocument& document) {
            return readStep(file, document, options.stepCodePage);
        });
    }
    if (extension == ".iges" || extension == ".igs") return loadDocument(path, readIges);
    if (extension == ".obj") return loadDocument(path, readObj);
    if (extension == ".brep" || extension == ".brp") return loadBrep(path);
    if (extension == ".stl") return loadStl(path);
    throw CadLoadError("CAD model file " + quoted(path) + " has the unsupported extension '" + extension +
                       "' (supported: .step, .stp, .iges, .igs, .brep, .brp, .stl, .obj)");
}

bool hasGeometry(const CadModel& model) {
    return std::any_of(model.parts.begin(), model.parts.end(),
                       [](const CadPart& part) { return !part.faces.empty() || !part.facets.empty(); });
}

// A load error carries what the kernel said while it failed, a line each.
template <typename Load>
CadModel withKernelMessages(Load load) {
    try {
        return load();
    } catch (const CadLoadError& error) {
        std::string text = error.what();
        for (const std::string& message : takeKernelMessages()) text += "\n  kernel: " + message;
        throw CadLoadError(text);
    }
}

}  // namespace

CadModel loadCadModel(const std::string& path, const LoadOptions& options) {
    const fs::path absolute = fs::absolute(path).lexically_normal();
    checkReadable(absolute);
    quietKernelMessages();
    takeKernelMessages();
    CadModel model = withKernelMessages([&] { return loadByExtension(absolute, options); });
    if (!hasGeometry(model)) throw CadLoadError("CAD model file " + quoted(absolute) + " holds no geometry");
    return model;
}

}  // namespace host::cad
