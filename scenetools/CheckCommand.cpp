#include "scenetools/CheckCommand.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <exception>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"

namespace scenetools {

namespace {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

void writeSummary(JsonWriter& writer, const scenereader::SceneSummary& summary) {
    const std::pair<const char*, size_t> counts[] = {
        {"groups", summary.groups},
        {"objects", summary.objects},
        {"triangleMeshes", summary.triangleMeshes},
        {"triangles", summary.triangles},
        {"materials", summary.materials},
        {"distinctMaterials", summary.distinctMaterials},
        {"cameras", summary.cameras},
        {"nurbsObjects", summary.nurbsObjects},
        {"animations", summary.animations},
    };
    writer.Key("summary");
    writer.StartObject();
    for (const auto& [name, count] : counts) {
        writer.Key(name);
        writer.Uint64(count);
    }
    writer.EndObject();
}

bool checkOne(const std::string& file, bool json, std::ostream& out, std::ostream& err) {
    rapidjson::StringBuffer text;
    JsonWriter writer(text);
    writer.StartObject();
    writer.Key("file");
    writer.String(file.c_str());
    bool sound = false;
    try {
        const scenereader::Document document = scenereader::readSceneFile(file);
        const std::vector<std::string> problems = scenereader::checkScene(document);
        const std::vector<std::string> warnings = scenereader::sceneWarnings(document);
        sound = problems.empty();
        const scenereader::SceneSummary summary = scenereader::summarize(document);
        if (!json) {
            for (const std::string& problem : problems) err << file << ": " << problem << "\n";
            for (const std::string& warning : warnings) err << file << ": warning: " << warning << "\n";
            out << file << ": " << scenereader::describeSummary(summary) << "\n";
            return sound;
        }
        writer.Key("sound");
        writer.Bool(sound);
        writer.Key("problems");
        writer.StartArray();
        for (const std::string& problem : problems) writer.String(problem.c_str());
        writer.EndArray();
        writer.Key("warnings");
        writer.StartArray();
        for (const std::string& warning : warnings) writer.String(warning.c_str());
        writer.EndArray();
        writeSummary(writer, summary);
    } catch (const std::exception& error) {
        if (!json) {
            err << error.what() << "\n";
            return false;
        }
        writer.Key("sound");
        writer.Bool(false);
        writer.Key("error");
        writer.String(error.what());
    }
    writer.EndObject();
    out << text.GetString() << "\n";
    return sound;
}

}  // namespace

bool checkScenes(const std::vector<std::string>& files, bool json, std::ostream& out, std::ostream& err) {
    bool allSound = true;
    for (const std::string& file : files) allSound = checkOne(file, json, out, err) && allSound;
    return allSound;
}

}  // namespace scenetools
