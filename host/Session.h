#pragma once
// The state of the headless host that a plug-in works on: the open models,
// the current model and mode, the commands the plug-in registered, the text
// resources below the plug-in's folder, the configuration options, the
// user's scripted answers and the errors of the run.
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "host/CommandRegistry.h"
#include "host/ErrorLog.h"
#include "host/HandedOutTexts.h"
#include "host/Model.h"
#include "host/TextResources.h"
#include "host/UserScript.h"

namespace host {

class Session {
public:
    Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Models. A model keeps its address for the life of the session.
    Model& addModel(Model model) { return models_.emplace_back(std::move(model)); }
    const std::deque<Model>& models() const { return models_; }
    void setCurrentModel(Model* model) { currentModel_ = model; }
    Model* currentModel() const { return currentModel_; }
    void setMode(int mode) { mode_ = mode; }
    int mode() const { return mode_; }

    // Commands, and the click on one: see CommandRegistry::press.
    CommandRegistry& commands() { return commands_; }
    const CommandRegistry& commands() const { return commands_; }
    int press(std::string_view command) { return commands_.press(command); }

    TextResources& texts() { return texts_; }

    // Configuration options by name, exact in case.
    void setConfigOption(std::string name, std::u16string value) { configOptions_[std::move(name)] = std::move(value); }
    const std::u16string* configOption(std::string_view name) const;

    UserScript& script() { return script_; }
    ErrorLog& errors() { return errors_; }
    const ErrorLog& errors() const { return errors_; }

    // What the start-up questions answer.
    void setRunMode(int mode) { runMode_ = mode; }
    int runMode() const { return runMode_; }
    void setUnicodeEncoding(bool enabled) { unicodeEncoding_ = enabled; }
    bool unicodeEncoding() const { return unicodeEncoding_; }
    // None makes the display version's call fail.
    void setDisplayVersion(std::optional<std::string> version) { displayVersion_ = std::move(version); }
    const std::optional<std::string>& displayVersion() const { return displayVersion_; }

    // Texts allocated for the plug-in.
    HandedOutTexts<char>& handedOutStrings() { return handedOutStrings_; }
    HandedOutTexts<ProWchar>& handedOutWideStrings() { return handedOutWideStrings_; }

private:
    std::deque<Model> models_;
    Model* currentModel_ = nullptr;
    int mode_ = 0;
    CommandRegistry commands_;
    TextResources texts_;
    std::map<std::string, std::u16string, std::less<>> configOptions_;
    ErrorLog errors_;
    UserScript script_{errors_};
    int runMode_ = 0;
    bool unicodeEncoding_ = true;
    std::optional<std::string> displayVersion_ = "3.0";
    HandedOutTexts<char> handedOutStrings_;
    HandedOutTexts<ProWchar> handedOutWideStrings_;
};

}  // namespace host
