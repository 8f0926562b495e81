#include "ExportedScene.h"

#include "scenereader/SceneReader.h"

#ifndef VANTREL_PLUGIN_FILE
#error "the tests need the path of the plug-in library"
#endif

namespace host::realmodel::testing {

namespace {

ExportRequest requestFor(const std::filesystem::path& folder, ExportSettings settings) {
    ExportRequest request;
    request.output = folder / "scene.vnz";
    request.plugin = VANTREL_PLUGIN_FILE;
    request.workdir = folder;
    request.settings = settings;
    return request;
}

ExportedScene readBack(ExportReport report) {
    ExportedScene scene{std::move(report), {}};
    scene.document = scenereader::readSceneFile(scene.report.output.string());
    return scene;
}

const scenereader::Statement* arrayStatement(const scenereader::Block& geometry, const std::string& name) {
    const scenereader::Statement* statement = geometry.statement(name);
    if (!statement || statement->values.empty() || statement->values[0].kind != scenereader::ValueKind::Binary)
        return nullptr;
    return statement;
}

}  // namespace

ExportedScene exportFile(const std::filesystem::path& model, const std::filesystem::path& folder,
                         ExportSettings settings) {
    ExportRequest request = requestFor(folder, settings);
    request.model = model;
    return readBack(runExport(request));
}

ExportedScene exportModel(std::shared_ptr<const cad::CadModel> model, const std::filesystem::path& folder,
                          ExportSettings settings) {
    ExportRequest request = requestFor(folder, settings);
    request.model = "model";
    return readBack(runExport(request, std::move(model)));
}

double flagsOf(const scenereader::Block& group) {
    const scenereader::Statement* flags = group.statement("flags");
    return flags && !flags->numbers().empty() ? flags->numbers()[0] : 0.0;
}

std::vector<const scenereader::Block*> partGroups(const scenereader::Document& document) {
    std::vector<const scenereader::Block*> groups;
    for (const scenereader::Block* group : document.root.descendants("group")) {
        if (flagsOf(*group) == partGroupFlags) groups.push_back(group);
    }
    return groups;
}

std::vector<const scenereader::Block*> partGroupsNamed(const scenereader::Document& document,
                                                       const std::string& name) {
    std::vector<const scenereader::Block*> groups;
    for (const scenereader::Block* group : partGroups(document)) {
        if (group->name() == name) groups.push_back(group);
    }
    return groups;
}

std::vector<const scenereader::Block*> meshesBelow(const scenereader::Block& block) {
    std::vector<const scenereader::Block*> meshes;
    for (const scenereader::Block* geometry : block.descendants("geometry")) {
        if (geometry->name() == "triangles") meshes.push_back(geometry);
    }
    return meshes;
}

const std::vector<float>* floatArray(const scenereader::Block& geometry, const std::string& name) {
    const scenereader::Statement* statement = arrayStatement(geometry, name);
    return statement ? &statement->values[0].binary.floats : nullptr;
}

const std::vector<int32_t>* intArray(const scenereader::Block& geometry, const std::string& name) {
    const scenereader::Statement* statement = arrayStatement(geometry, name);
    return statement ? &statement->values[0].binary.ints : nullptr;
}

size_t triangleCount(const scenereader::Document& document) {
    size_t count = 0;
    for (const scenereader::Block* mesh : meshesBelow(document.root)) {
        if (const auto* triangles = intArray(*mesh, "triangles")) count += triangles->size() / 3;
    }
    return count;
}

const scenereader::Statement* findStatement(const scenereader::Block& block, const std::string& name) {
    for (const auto& item : block.items) {
        if (const auto* statement = std::get_if<scenereader::Statement>(&item)) {
            if (statement->name == name) return statement;
        } else if (const auto* found = findStatement(std::get<scenereader::Block>(item), name)) {
            return found;
        }
    }
    return nullptr;
}

const scenereader::Block* findShader(const scenereader::Block& block, const std::string& type) {
    if (block.kind == "shader" && block.name() == type) return &block;
    for (const auto& item : block.items) {
        const scenereader::Block* found = nullptr;
        if (const auto* statement = std::get_if<scenereader::Statement>(&item)) {
            for (const scenereader::Value& value : statement->values) {
                if (value.kind == scenereader::ValueKind::Shader && value.shader) {
                    found = findShader(*value.shader, type);
                    if (found) break;
                }
            }
        } else {
            found = findShader(std::get<scenereader::Block>(item), type);
        }
        if (found) return found;
    }
    return nullptr;
}

}  // namespace host::realmodel::testing
