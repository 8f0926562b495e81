#include "renderer/HeldScenes.h"

#include <cstdio>
#include <system_error>

#include "importers/sceneapi/nvxScene_api_file.h"
#include "renderer/SceneMerge.h"
#include "renderer/SceneReplay.h"
#include "scenereader/ParseError.h"
#include "scenereader/SceneReader.h"

namespace renderer {

namespace fs = std::filesystem;

namespace {

const char* const HEADER = "//---norvex:dal:7---\n// Held by the stand-in renderer\n\n";

// A model's name as a file name: separators and dots that could climb out
// of the folder are replaced.
std::string fileNameOf(const std::string& model) {
    std::string name = model.empty() ? std::string("unnamed") : model;
    for (char& c : name)
        if (c == '/' || c == '\\' || static_cast<unsigned char>(c) < 32) c = '_';
    if (name.front() == '.') name.front() = '_';
    return name + ".vnz";
}

std::string attributeText(const std::string& text) {
    std::string escaped;
    for (char c : text) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

}  // namespace

fs::path HeldScenes::fileOf(const std::string& model) const { return outputFolder_ / fileNameOf(model); }

std::string HeldScenes::receive(std::string_view stream) {
    scenereader::Document document;
    try {
        document = scenereader::parseScene(stream);
    } catch (const scenereader::ParseError& error) {
        return std::string("the stream can't be read: ") + error.what();
    }
    const std::string model = modelNameOf(document.root);
    if (model.empty()) return "the stream holds no group";
    auto held = models_.find(model);
    if (held == models_.end()) {
        held = models_.emplace(model, std::move(document.root)).first;
    } else {
        mergeScene(held->second, document.root);
    }
    return save(model, held->second);
}

std::string HeldScenes::save(const std::string& model, const scenereader::Block& root) const {
    std::error_code error;
    fs::create_directories(outputFolder_, error);
    const fs::path file = fileOf(model);
    const fs::path partial = file.string() + ".part";
    FILE* stream = std::fopen(partial.c_str(), "wb");
    if (!stream) return "can't write " + partial.string();
    bool failed = false;
    {
        nvxScene_api_file writer(stream, true);
        writer.write_text("%s", HEADER);
        statementsLeftOut_ = replayScene(root, writer);
        failed = writer.any_write_failed();
    }
    failed = std::fclose(stream) != 0 || failed;
    if (!failed) fs::rename(partial, file, error);
    if (failed || error) return "can't write " + file.string();
    const auto cameras = root.descendants("camera");
    if (saved) saved(file, cameras.empty() ? std::string() : cameras.front()->name());
    return {};
}

std::string HeldScenes::outlineXml() const {
    std::string xml = "<scene>";
    for (const auto& [name, root] : models_) {
        const auto groups = root.descendants("group").size(), objects = root.descendants("object").size();
        xml += "<group name=\"" + attributeText(name) + "\" groups=\"" + std::to_string(groups) + "\" objects=\"" +
               std::to_string(objects) + "\"/>";
    }
    return xml + "</scene>\n";
}

}  // namespace renderer
