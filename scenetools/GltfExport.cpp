#include "scenetools/GltfExport.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <Message_ProgressRange.hxx>
#include <RWGltf_CafWriter.hxx>
#include <RWMesh_CoordinateSystemConverter.hxx>
#include <Standard_Failure.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDocStd_Document.hxx>
#include <fstream>
#include <stdexcept>

#include "platform/WholeFile.h"
#include "scenetools/GlbContainer.h"
#include "scenetools/GltfAnimations.h"
#include "scenetools/GltfCameras.h"
#include "scenetools/GltfJson.h"
#include "scenetools/UpAxis.h"
#include "scenetools/XdeDocument.h"

namespace scenetools {

namespace {

std::string readFile(const std::filesystem::path& path) {
    std::optional<std::string> bytes = platform::readWholeFile(path);
    if (!bytes) throw std::runtime_error("can't read back " + path.string());
    return std::move(*bytes);
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
    out.close();
    if (!out) throw std::runtime_error("can't write " + path.string());
}

// The kernel's converter from the scene's units and axes to glTF's metres
// with +Y up: the input frame is the one whose axes the up rotation turns
// into glTF's X and Y.
void convertUnitsAndAxes(RWMesh_CoordinateSystemConverter& converter, const Scene& scene) {
    const Matrix turn = upRotation(scene.upAxis);
    const gp_Dir toX(turn[0], turn[4], turn[8]);
    const gp_Dir toY(turn[1], turn[5], turn[9]);
    converter.SetInputLengthUnit(1.0 / scene.meterScale);
    converter.SetInputCoordinateSystem(gp_Ax3(gp::Origin(), toY, toX));
    converter.SetOutputLengthUnit(1.0);
    converter.SetOutputCoordinateSystem(RWMesh_CoordinateSystem_glTF);
}

GltfCounts countsOf(const rapidjson::Document& document) {
    GltfCounts counts;
    auto size = [&](const char* name) -> size_t {
        return document.HasMember(name) && document[name].IsArray() ? document[name].Size() : 0;
    };
    counts.nodes = size("nodes");
    counts.meshes = size("meshes");
    counts.materials = size("materials");
    counts.cameras = size("cameras");
    counts.animations = size("animations");
    return counts;
}

rapidjson::Document parseJson(const std::string& json) {
    rapidjson::Document document;
    document.Parse(json.c_str(), json.size());
    if (document.HasParseError() || !document.IsObject())
        throw std::runtime_error("the written glTF JSON can't be read");
    return document;
}

std::string printJson(const rapidjson::Document& document) {
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    document.Accept(writer);
    return std::string(text.GetString(), text.GetSize());
}

// Cameras and animations, which the kernel's writer leaves out, and a note
// on animations that could not be placed.
bool addWhatTheWriterLeavesOut(rapidjson::Document& document, std::string& bin, const Scene& scene) {
    addCameras(document, scene);
    const size_t animations = addAnimations(document, bin, scene);
    if (animations < scene.animations) {
        auto& allocator = document.GetAllocator();
        rapidjson::Value& extras = member(member(document, "asset", rapidjson::kObjectType, allocator), "extras",
                                          rapidjson::kObjectType, allocator);
        const std::string note = std::to_string(scene.animations - animations) +
                                 " animation blocks are left out: their arrays don't read whole";
        extras.AddMember("animationNote", rapidjson::Value(note.c_str(), allocator), allocator);
    }
    return !scene.cameras.empty() || scene.animations > 0;
}

GltfCounts addToGlb(const std::filesystem::path& output, const Scene& scene) {
    GlbChunks chunks = splitGlb(readFile(output));
    rapidjson::Document document = parseJson(chunks.json);
    if (addWhatTheWriterLeavesOut(document, chunks.bin, scene)) {
        chunks.json = printJson(document);
        writeFile(output, joinGlb(chunks));
    }
    return countsOf(document);
}

// The side file of buffer 0, named by its uri beside the output.
std::filesystem::path binFileOf(const rapidjson::Document& document, const std::filesystem::path& output) {
    if (!document.HasMember("buffers") || document["buffers"].Empty() || !document["buffers"][0].HasMember("uri")) {
        return {};
    }
    return output.parent_path() / document["buffers"][0]["uri"].GetString();
}

GltfCounts addToGltf(const std::filesystem::path& output, const Scene& scene) {
    rapidjson::Document document = parseJson(readFile(output));
    const std::filesystem::path binFile = binFileOf(document, output);
    std::string bin = binFile.empty() ? std::string() : readFile(binFile);
    const size_t binSize = bin.size();
    if (addWhatTheWriterLeavesOut(document, bin, scene)) {
        if (bin.size() != binSize) {
            if (binFile.empty()) throw std::runtime_error("the written glTF has no binary file for the animations");
            writeFile(binFile, bin);
        }
        writeFile(output, printJson(document));
    }
    return countsOf(document);
}

}  // namespace

std::string exactSurfacesNote(const Scene& scene) {
    if (scene.exactSurfaces == 0) return {};
    return std::to_string(scene.exactSurfaces) +
           " exact (NURBS) surfaces of the scene are left out: glTF has no form for them; their triangle meshes are "
           "here";
}

namespace {

GltfCounts writeWithKernel(const Scene& scene, const std::filesystem::path& sceneFolder,
                           const std::filesystem::path& output) {
    const bool binary = output.extension() == ".glb";
    Handle(TDocStd_Document) document = makeXdeDocument(scene, sceneFolder);
    RWGltf_CafWriter writer(TCollection_AsciiString(output.string().c_str()), binary);
    convertUnitsAndAxes(writer.ChangeCoordinateSystemConverter(), scene);
    writer.SetForcedUVExport(true);
    writer.SetTransformationFormat(RWGltf_WriterTrsfFormat_TRS);  // animation channels need TRS nodes
    TColStd_IndexedDataMapOfStringString fileInfo;
    fileInfo.Add("source", "Vantrel scene converted by vantrel-scene");
    if (const std::string note = exactSurfacesNote(scene); !note.empty()) {
        fileInfo.Add("exactSurfacesLeftOut", TCollection_AsciiString(static_cast<int>(scene.exactSurfaces)));
        fileInfo.Add("note", note.c_str());
    }
    if (!writer.Perform(document, fileInfo, Message_ProgressRange())) {
        throw std::runtime_error("can't write " + output.string());
    }
    return binary ? addToGlb(output, scene) : addToGltf(output, scene);
}

}  // namespace

GltfCounts writeGltf(const Scene& scene, const std::filesystem::path& sceneFolder,
                     const std::filesystem::path& output) {
    try {
        return writeWithKernel(scene, sceneFolder, output);
    } catch (const Standard_Failure& failure) {
        throw std::runtime_error("can't write " + output.string() + ": " + failure.GetMessageString());
    }
}

}  // namespace scenetools
