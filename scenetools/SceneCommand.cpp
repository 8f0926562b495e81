#include "scenetools/SceneCommand.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <filesystem>
#include <optional>

#include "scenereader/SceneReader.h"
#include "scenetools/CheckCommand.h"
#include "scenetools/GltfExport.h"
#include "scenetools/Preview.h"
#include "scenetools/SceneInfo.h"
#include "scenetools/SceneModel.h"

namespace scenetools {

namespace {

constexpr const char* usage =
    "usage: vantrel-scene info [--tree] FILE.vnz...\n"
    "       vantrel-scene check [--json] FILE.vnz...\n"
    "       vantrel-scene to-gltf FILE.vnz -o OUT.glb|OUT.gltf\n"
    "       vantrel-scene preview FILE.vnz -o PIC.png [--size WxH] [--camera NAME] [--fit]\n"
    "info     what the scene holds: groups, objects, triangles, exact surfaces, materials, cameras,\n"
    "         animation blocks, the metre scale, the up axis and the bounding box in metres;\n"
    "         --tree adds the tree of groups (flags in words), objects and materials\n"
    "check    checks the meshes and animation blocks and prints a summary; --json for tools\n"
    "to-gltf  glTF 2.0 in metres with +Y up: nodes, meshes with normals and texture coordinates,\n"
    "         PBR materials with colour and texture, cameras; exact surfaces are left out\n"
    "preview  a shaded picture from a camera of the scene (default: the first) or, with --fit,\n"
    "         from a view that frames the whole model; --size defaults to 1024x768\n"
    "Exits with 1 when a file can't be read, fails its checks or can't be written, with 2 on a usage error.\n";

// The arguments of one subcommand: its files, its flags and its valued options.
struct Arguments {
    std::vector<std::string> files;
    std::vector<std::string> flags;
    std::vector<std::pair<std::string, std::string>> options;

    bool has(const std::string& flag) const {
        for (const std::string& given : flags) {
            if (given == flag) return true;
        }
        return false;
    }
    std::optional<std::string> option(const std::string& name) const {
        for (const auto& [given, value] : options) {
            if (given == name) return value;
        }
        return std::nullopt;
    }
};

struct Subcommand {
    const char* name;
    std::vector<std::string> flags;
    std::vector<std::string> valued;
    bool oneFile;
    int (*run)(const Arguments&, std::ostream&, std::ostream&);
};

std::optional<Arguments> parse(const Subcommand& command, const std::vector<std::string>& words, std::string& error) {
    Arguments arguments;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word.size() < 2 || word[0] != '-') {
            arguments.files.push_back(word);
        } else if (std::find(command.flags.begin(), command.flags.end(), word) != command.flags.end()) {
            arguments.flags.push_back(word);
        } else if (std::find(command.valued.begin(), command.valued.end(), word) != command.valued.end()) {
            if (i + 1 == words.size()) {
                error = word + " needs a value";
                return std::nullopt;
            }
            arguments.options.emplace_back(word, words[++i]);
        } else {
            error = "unknown option " + word;
            return std::nullopt;
        }
    }
    if (arguments.files.empty() || (command.oneFile && arguments.files.size() != 1)) {
        error = command.oneFile ? "give one scene file" : "give a scene file";
        return std::nullopt;
    }
    return arguments;
}

int runInfo(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    int status = 0;
    for (const std::string& file : arguments.files) {
        try {
            const scenereader::Document document = scenereader::readSceneFile(file);
            const Scene scene = buildScene(document);
            out << file << ": " << describeScene(document, scene);
            if (arguments.has("--tree")) out << describeSceneTree(scene);
        } catch (const std::exception& error) {
            err << error.what() << "\n";
            status = 1;
        }
    }
    return status;
}

int runCheck(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return checkScenes(arguments.files, arguments.has("--json"), out, err) ? 0 : 1;
}

std::filesystem::path folderOf(const std::string& file) {
    return std::filesystem::absolute(std::filesystem::path(file)).parent_path();
}

int runToGltf(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    const std::string output = arguments.option("-o").value_or("");
    const std::string extension = std::filesystem::path(output).extension().string();
    if (extension != ".glb" && extension != ".gltf") {
        err << "vantrel-scene to-gltf: name the output with -o OUT.glb or OUT.gltf\n" << usage;
        return 2;
    }
    try {
        const auto start = std::chrono::steady_clock::now();
        const Scene scene = buildScene(scenereader::readSceneFile(arguments.files[0]));
        const GltfCounts counts = writeGltf(scene, folderOf(arguments.files[0]), output);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        out << "wrote " << output << ": " << counts.nodes << " nodes, " << counts.meshes << " meshes, "
            << counts.materials << " materials, " << counts.cameras << " cameras, " << counts.animations
            << " animations";
        if (scene.exactSurfaces) out << "; " << exactSurfacesNote(scene);
        out << " (" << seconds.count() << " s)\n";
    } catch (const std::exception& error) {
        err << error.what() << "\n";
        return 1;
    }
    return 0;
}

std::optional<std::pair<int, int>> parseSize(const std::string& text) {
    const size_t x = text.find('x');
    if (x == std::string::npos) return std::nullopt;
    try {
        size_t used = 0;
        const int width = std::stoi(text.substr(0, x), &used);
        if (used != x) return std::nullopt;
        const int height = std::stoi(text.substr(x + 1), &used);
        if (used != text.size() - x - 1 || width < 16 || height < 16 || width > 8192 || height > 8192) {
            return std::nullopt;
        }
        return std::make_pair(width, height);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

int runPreview(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    PreviewRequest request;
    request.output = arguments.option("-o").value_or("");
    if (std::filesystem::path(request.output).extension() != ".png") {
        err << "vantrel-scene preview: name the picture with -o PIC.png\n" << usage;
        return 2;
    }
    const auto size = parseSize(arguments.option("--size").value_or("1024x768"));
    if (!size) {
        err << "vantrel-scene preview: --size takes WIDTHxHEIGHT, each from 16 to 8192\n" << usage;
        return 2;
    }
    request.width = size->first;
    request.height = size->second;
    request.camera = arguments.option("--camera").value_or("");
    request.fit = arguments.has("--fit");
    try {
        const Scene scene = buildScene(scenereader::readSceneFile(arguments.files[0]));
        out << "wrote " << request.output.string() << ": "
            << renderPreview(scene, folderOf(arguments.files[0]), request) << "\n";
    } catch (const std::exception& error) {
        err << error.what() << "\n";
        return 1;
    }
    return 0;
}

const std::vector<Subcommand>& subcommands() {
    static const std::vector<Subcommand> table = {
        {"info", {"--tree"}, {}, false, runInfo},
        {"check", {"--json"}, {}, false, runCheck},
        {"to-gltf", {}, {"-o"}, true, runToGltf},
        {"preview", {"--fit"}, {"-o", "--size", "--camera"}, true, runPreview},
    };
    return table;
}

}  // namespace

int runSceneCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    if (!arguments.empty() && (arguments[0] == "--help" || arguments[0] == "-h" || arguments[0] == "help")) {
        out << usage;
        return 0;
    }
    if (arguments.empty()) {
        err << usage;
        return 2;
    }
    for (const Subcommand& command : subcommands()) {
        if (arguments[0] != command.name) continue;
        const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
        if (std::find(rest.begin(), rest.end(), "--help") != rest.end()) {
            out << usage;
            return 0;
        }
        std::string error;
        const std::optional<Arguments> parsed = parse(command, rest, error);
        if (!parsed) {
            err << "vantrel-scene " << command.name << ": " << error << "\n" << usage;
            return 2;
        }
        return command.run(*parsed, out, err);
    }
    err << "vantrel-scene: unknown subcommand " << arguments[0] << "\n" << usage;
    return 2;
}

}  // namespace scenetools
