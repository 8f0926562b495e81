#include "scenetools/GltfExport.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include <Message_ProgressRange.hxx>
#include <RWGltf_CafWriter.hxx>
#include <Standard_Failure.hxx>
#include <RWMesh_CoordinateSystemConverter.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDocStd_Document.hxx>
#include <rapidjson/document.h>

#include "scenetools/GlbContainer.h"
#include "scenetools/GltfCameras.h"
#include "scenetools/UpAxis.h"
#include "scenetools/XdeDocument.h"

namespace scenetools {

namespace {

std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    if (!in) throw std::runtime_error("can't read back " + path.string());
    return bytes.str();
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

GltfCounts countsOf(const std::string& json) {
    rapidjson::Document document;
    document.Parse(json.c_str(), json.size());
    GltfCounts counts;
    if (document.HasParseError() || !document.IsObject()) return counts;
    auto size = [&](const char* name) -> size_t {
        return document.HasMember(name) && document[name].IsArray() ? document[name].Size() : 0;
    };
    counts.nodes = size("nodes");
    counts.meshes = size("meshes");
    counts.materials = size("materials");
    counts.cameras = size("cameras");
    return counts;
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
    TColStd_IndexedDataMapOfStringString fileInfo;
    fileInfo.Add("source", "Vantrel scene converted by vantrel-scene");
    if (const std::string note = exactSurfacesNote(scene); !note.empty()) {
        fileInfo.Add("exactSurfacesLeftOut", TCollection_AsciiString(static_cast<int>(scene.exactSurfaces)));
        fileInfo.Add("note", note.c_str());
    }
    if (!writer.Perform(document, fileInfo, Message_ProgressRange())) {
        throw std::runtime_error("can't write " + output.string());
    }
    if (binary) {
        GlbChunks chunks = splitGlb(readFile(output));
        if (!scene.cameras.empty()) {
            chunks.json = addCameras(chunks.json, scene);
            writeFile(output, joinGlb(chunks));
        }
        return countsOf(chunks.json);
    }
    std::string json = readFile(output);
    if (!scene.cameras.empty()) {
        json = addCameras(json, scene);
        writeFile(output, json);
    }
    return countsOf(json);
}

}  // namespace

GltfCounts writeGltf(const Scene& scene, const std::filesystem::path& sceneFolder, const std::filesystem::path& output) {
    try {
        return writeWithKernel(scene, sceneFolder, output);
    } catch (const Standard_Failure& failure) {
        throw std::runtime_error("can't write " + output.string() + ": " + failure.GetMessageString());
    }
}

}  // namespace scenetools
