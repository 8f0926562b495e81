#include "host/cli/SessionScript.h"

#include <sstream>
#include <vector>

#include "host/cli/KernelSetup.h"
#include "host/realmodel/ModelLoading.h"
#include "platform/Process.h"
#include "platform/Utf8.h"

namespace host::cli {

namespace {

std::string restOf(std::istringstream& words) {
    std::string rest;
    std::getline(words >> std::ws, rest);
    if (rest.size() >= 2 && rest.front() == '"' && rest.back() == '"') rest = rest.substr(1, rest.size() - 2);
    return rest;
}

Model* modelNamed(Session& session, const std::string& name) {
    const std::u16string wanted = platform::utf8ToWide(name);
    for (Model& model : session.models())
        if (model.name == wanted) return &model;
    return nullptr;
}

void changeColour(Session& session, std::istringstream& words) {
    std::string part;
    double colour[3] = {};
    if (!(words >> part >> colour[0] >> colour[1] >> colour[2])) throw ScriptError{"colour needs PART R G B"};
    Model* model = modelNamed(session, part);
    if (!model) throw ScriptError{"no model is named \"" + part + "\""};
    auto recolour = [&colour](std::optional<AppearanceProps>& appearance) {
        if (!appearance) appearance = AppearanceProps{};
        for (int i = 0; i < 3; ++i) appearance->color[i] = colour[i];
    };
    recolour(model->appearance);
    for (Surface& surface : model->surfaces) recolour(surface.appearance);
    for (Quilt& quilt : model->quilts)
        for (Surface& surface : quilt.surfaces) recolour(surface.appearance);
    model->modify();
}

std::vector<ComponentPath> picksOf(std::istringstream& words) {
    std::vector<ComponentPath> picks;
    for (std::string path; words >> path;) {
        ComponentPath ids;
        std::istringstream numbers(path);
        for (std::string id; std::getline(numbers, id, ',');) ids.push_back(std::stoi(id));
        picks.push_back(ids);
    }
    return picks;
}

void runLine(const std::string& line, const std::filesystem::path& folder, Session& session, Host& host,
             std::ostream& out) {
    std::istringstream words(line);
    std::string command;
    words >> command;
    if (command.empty() || command.front() == '#') return;
    if (command == "open") {
        prepareKernel();
        realmodel::loadModelIntoSession(session, (folder / restOf(words)).string());
    } else if (command == "press") {
        const std::string name = restOf(words);
        out << "pressed \"" << name << "\": the action answered " << host.press(name) << "\n";
    } else if (command == "answer") {
        std::string dialog, button;
        if (!(words >> dialog >> button)) throw ScriptError{"answer needs DIALOG BUTTON"};
        session.script().pressButton(dialog, button);
    } else if (command == "file") {
        session.script().chooseFile(platform::utf8ToWide((folder / restOf(words)).string()));
    } else if (command == "colour") {
        changeColour(session, words);
    } else if (command == "pick") {
        session.script().select(picksOf(words));
    } else if (command == "wait") {
        int milliseconds = 0;
        words >> milliseconds;
        platform::sleepMilliseconds(milliseconds);
    } else {
        throw ScriptError{"unknown command \"" + command + "\""};
    }
}

}  // namespace

void runSessionScript(const std::string& script, const std::filesystem::path& folder, Session& session, Host& host,
                      std::ostream& out) {
    std::istringstream lines(script);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        try {
            runLine(line, folder, session, host, out);
        } catch (const ScriptError& error) {
            throw ScriptError{"line " + std::to_string(number) + ": " + error.message};
        } catch (const std::invalid_argument&) {
            throw ScriptError{"line " + std::to_string(number) + ": a number is expected"};
        }
    }
}

}  // namespace host::cli
