#pragma once
// What the export tests share: a model exported through the real plug-in in
// the headless host, and the written scene read back, with look-ups of the
// parts' groups and meshes in it.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/cad/CadModel.h"
#include "host/realmodel/ExportJob.h"
#include "scenereader/SceneDocument.h"

namespace host::realmodel::testing {

// A part's node in the scene: a group with these flags around its geometry.
inline constexpr double partGroupFlags = 1024;
inline constexpr double assemblyGroupFlags = 32768;

struct ExportedScene {
    ExportReport report;
    scenereader::Document document;
};

// Exports into `folder` (also the plug-in's working directory) and reads the
// scene back.
ExportedScene exportFile(const std::filesystem::path& model, const std::filesystem::path& folder,
                         ExportSettings settings = {});
ExportedScene exportModel(std::shared_ptr<const cad::CadModel> model, const std::filesystem::path& folder,
                          ExportSettings settings = {});

double flagsOf(const scenereader::Block& group);
// Groups with the part flags, in file order: one per part occurrence.
std::vector<const scenereader::Block*> partGroups(const scenereader::Document& document);
std::vector<const scenereader::Block*> partGroupsNamed(const scenereader::Document& document,
                                                       const std::string& name);
// The "triangles" geometries below a block.
std::vector<const scenereader::Block*> meshesBelow(const scenereader::Block& block);
// The float values of an array statement of a geometry ("vertices", "normals", "uv_tex").
const std::vector<float>* floatArray(const scenereader::Block& geometry, const std::string& name);
const std::vector<int32_t>* intArray(const scenereader::Block& geometry, const std::string& name);
size_t triangleCount(const scenereader::Document& document);
// The first statement of that name at any depth.
const scenereader::Statement* findStatement(const scenereader::Block& block, const std::string& name);
// The first inline shader of that type at any depth, inline shader values included.
const scenereader::Block* findShader(const scenereader::Block& block, const std::string& type);

}  // namespace host::realmodel::testing
