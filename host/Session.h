#pragma once
// The state of the headless host that a plug-in works on: the open models,
// the current model and mode, the commands the plug-in registered, the text
// resources below the plug-in's folder, the configuration options, the
// user's scripted answers, the dialogs, what the host handed out and the
// errors of the run.
#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "host/CallRecord.h"
#include "host/CommandRegistry.h"
#include "host/DialogBoard.h"
#include "host/ErrorLog.h"
#include "host/FaultPlan.h"
#include "host/HandedOutTexts.h"
#include "host/HostArrays.h"
#include "host/Model.h"
#include "host/PluginHandles.h"
#include "host/TextResources.h"
#include "host/UserScript.h"

namespace host {

// A tessellation that the plug-in asked for, and how the surface answered.
struct TessellationRequest {
    int surfaceId = 0;
    double chordHeight = 0.0;
    TessellationOutcome outcome = TessellationOutcome::Done;
};

// What the plug-in offered in a file dialog.
struct FileDialogRequest {
    std::string operation;  // "ProFileSave" or "ProFileOpen"
    std::u16string title;
    std::u16string filter;
    std::u16string defaultDirectory;
    std::u16string defaultName;
};

// What the plug-in asked the user to pick.
struct SelectRequest {
    std::string types;
    int maxCount = 0;
};

class Session {
public:
    Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Models. A model keeps its address for the life of the session.
    Model& addModel(Model model);
    const std::deque<Model>& models() const { return models_; }
    std::deque<Model>& models() { return models_; }
    // The model that `handle` stands for, or null if it is none of the session's.
    const Model* findModel(const void* handle) const;
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

    // Appearance and texture for the null item; none makes the call fail.
    void setDefaultAppearance(std::optional<AppearanceProps> props) { defaultAppearance_ = props; }
    const std::optional<AppearanceProps>& defaultAppearance() const { return defaultAppearance_; }
    void setDefaultTexture(std::optional<TextureProps> props) { defaultTexture_ = props; }
    const std::optional<TextureProps>& defaultTexture() const { return defaultTexture_; }
    // The folders in which texture images are looked for, in order.
    void setTextureSearchPath(std::vector<std::filesystem::path> folders) { textureSearchPath_ = std::move(folders); }
    const std::vector<std::filesystem::path>& textureSearchPath() const { return textureSearchPath_; }

    UserScript& script() { return script_; }
    DialogBoard& dialogs() { return dialogs_; }
    const DialogBoard& dialogs() const { return dialogs_; }
    ErrorLog& errors() { return errors_; }
    const ErrorLog& errors() const { return errors_; }

    // What the start-up questions answer.
    void setRunMode(int mode) { runMode_ = mode; }
    int runMode() const { return runMode_; }
    void setUnicodeEncoding(bool enabled) { unicodeEncoding_ = enabled; }
    bool unicodeEncoding() const { return unicodeEncoding_; }
    void setDisplayVersion(std::string version) { displayVersion_ = std::move(version); }
    const std::string& displayVersion() const { return displayVersion_; }

    // What the host handed out: texts, arrays and handles.
    HandedOutTexts<char>& handedOutStrings() { return handedOutStrings_; }
    HandedOutTexts<char16_t>& handedOutWideStrings() { return handedOutWideStrings_; }
    HandedOutStringArrays& handedOutStringArrays() { return handedOutStringArrays_; }
    HostArrays& arrays() { return arrays_; }
    const HostArrays& arrays() const { return arrays_; }
    PluginHandles& handles() { return handles_; }
    const PluginHandles& handles() const { return handles_; }

    // The host calls made, and the answers planned instead of some of them:
    // see OperationShims.h.
    CallRecord& calls() { return calls_; }
    const CallRecord& calls() const { return calls_; }
    FaultPlan& faults() { return faults_; }
    const FaultPlan& faults() const { return faults_; }

    // What the plug-in asked for, in order.
    std::vector<TessellationRequest>& tessellationRequests() { return tessellationRequests_; }
    std::vector<FileDialogRequest>& fileDialogs() { return fileDialogs_; }
    std::vector<SelectRequest>& selectRequests() { return selectRequests_; }

private:
    std::deque<Model> models_;
    std::unordered_set<const void*> modelAddresses_;
    Model* currentModel_ = nullptr;
    int mode_ = 0;
    CommandRegistry commands_;
    TextResources texts_;
    std::map<std::string, std::u16string, std::less<>> configOptions_;
    std::optional<AppearanceProps> defaultAppearance_;
    std::optional<TextureProps> defaultTexture_;
    std::vector<std::filesystem::path> textureSearchPath_;
    ErrorLog errors_;
    UserScript script_{errors_};
    DialogBoard dialogs_{errors_};
    int runMode_ = 0;
    bool unicodeEncoding_ = true;
    std::string displayVersion_ = "3.0";
    HandedOutTexts<char> handedOutStrings_;
    HandedOutTexts<char16_t> handedOutWideStrings_;
    HandedOutStringArrays handedOutStringArrays_;
    HostArrays arrays_;
    PluginHandles handles_;
    CallRecord calls_;
    FaultPlan faults_;
    std::vector<TessellationRequest> tessellationRequests_;
    std::vector<FileDialogRequest> fileDialogs_;
    std::vector<SelectRequest> selectRequests_;
};

}  // namespace host
