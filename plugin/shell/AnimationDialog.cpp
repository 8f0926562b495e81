#include "plugin/shell/AnimationDialog.h"

#include <algorithm>
#include <string>

#include "animation/FraReader.h"
#include "plugin/core/SettingsFile.h"
#include "plugin/core/VantrelPlugin.h"
#include "plugin/shell/DialogGrid.h"
#include "plugin/shell/FileDialogDefaults.h"
#include "toolkit/HostCallback.h"
#include "toolkit/ProToolkit.h"

namespace {

constexpr const char* dialogName = "Vantrel_Animation";
constexpr const char* fileLayout = "Vantrel_Animation_Layout";
constexpr const char* inputPanel = "Vantrel_Animation_Inputpanel";
constexpr const char* browseButton = "Vantrel_Animation_Browse";
constexpr const char* buttonLayout = "Vantrel_Animation_OK_Layout";
constexpr const char* exportButton = "Vantrel_Animation_Export";
constexpr const char* cancelButton = "Vantrel_Animation_Cancel";
constexpr const ProWchar messageFile[] = u"vantrel_plugin_msg.txt";

struct Message {
    ProLine text = {};
    explicit Message(const char* key) { ProMessageToBuffer(text, messageFile, key); }
};

void addFileRow(VantrelPlugin& plugin) {
    ProUIGridopts labelGrid = dialogGrid(0, 0);
    ProUIDialogLabelAdd(dialogName, "Vantrel_Animation_Label", &labelGrid);
    ProUILabelTextSet(dialogName, "Vantrel_Animation_Label", Message("vantrelPluginAnimationLabel").text);
    ProUILabelUnattachLeft(dialogName, "Vantrel_Animation_Label");
    ProUILabelUnattachRight(dialogName, "Vantrel_Animation_Label");

    ProUIGridopts layoutGrid = dialogGrid(1, 0);
    ProUIDialogLayoutAdd(dialogName, fileLayout, &layoutGrid);
    ProUIGridopts panelGrid = dialogGrid(0, 0);
    ProUILayoutInputpanelAdd(dialogName, fileLayout, inputPanel, &panelGrid);
    ProUIInputpanelInputtypeSet(dialogName, inputPanel, 1);
    ProUIInputpanelMaxlenSet(dialogName, inputPanel, 260);
    ProUIGridopts browseGrid = dialogGrid(0, 1);
    ProUILayoutPushbuttonAdd(dialogName, fileLayout, browseButton, &browseGrid);
    ProUIPushbuttonTextSet(dialogName, browseButton, Message("vantrelPluginBrowse").text);
    ProUIPushbuttonActivateActionSet(dialogName, browseButton, browseFraFile, &plugin);
}

void addButtonRow(VantrelPlugin& plugin) {
    ProUIGridopts separatorGrid = dialogGrid(2, 0);
    ProUIDialogSeparatorAdd(dialogName, "Vantrel_OK_Separator", &separatorGrid);
    ProUIGridopts layoutGrid = dialogGrid(3, 0);
    ProUIDialogLayoutAdd(dialogName, buttonLayout, &layoutGrid);
    ProUILayoutUnattachLeft(dialogName, buttonLayout);
    ProUILayoutUnattachRight(dialogName, buttonLayout);

    ProUIGridopts exportGrid = dialogGrid(0, 0);
    ProUILayoutPushbuttonAdd(dialogName, buttonLayout, exportButton, &exportGrid);
    ProUIPushbuttonTextSet(dialogName, exportButton, Message("vantrelPluginOk").text);
    ProUIPushbuttonHelptextSet(dialogName, exportButton, Message("vantrelPluginAnimationExportHelp").text);
    ProUIPushbuttonActivateActionSet(dialogName, exportButton, acceptAnimationDialog, &plugin);

    ProUIGridopts cancelGrid = dialogGrid(0, 1);
    ProUILayoutPushbuttonAdd(dialogName, buttonLayout, cancelButton, &cancelGrid);
    Message cancel("vantrelPluginCancel");
    ProUIPushbuttonTextSet(dialogName, cancelButton, cancel.text);
    ProUIPushbuttonHelptextSet(dialogName, cancelButton, cancel.text);
    ProUIPushbuttonActivateActionSet(dialogName, cancelButton, cancelAnimationDialog, &plugin);
}

// The last motion file is offered again, cut to a buffer of 1024 wide
// characters: accepting it reads it again.
void offerLastFile(const std::u16string& fraPath) {
    if (fraPath.empty()) return;
    ProWchar path[1024];
    const size_t length = std::min(fraPath.size(), std::size(path) - 1);
    std::copy_n(fraPath.begin(), length, path);
    path[length] = 0;
    ProUIInputpanelValueSet(dialogName, inputPanel, path);
}

}  // namespace

bool showAnimationDialog(VantrelPlugin& plugin) {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR || !model) return false;
    ProUIDialogCreate(dialogName, nullptr);
    addFileRow(plugin);
    addButtonRow(plugin);
    ProUIDialogDisableResizing(dialogName);
    offerLastFile(plugin.settings.fraPath);
    int status = 0;
    ProUIDialogActivate(dialogName, &status);
    ProUIDialogDestroy(dialogName);
    return status == 0;
}

// The file dialog starts in the folder of the last motion file with its name.
// A name of 40 wide characters or more doesn't fit the name buffer: it is
// offered empty instead of ending the process, as for the export's path.
void browseFraFile(char*, char*, void*) {
    toolkit::guardEntry(browseButton, [] {
        const VantrelPlugin& plugin = *VantrelPlugin::instance();
        FileDialogDefaults defaults = fileDialogDefaults(plugin.settings.fraPath);
        ProPath chosen = {};
        if (ProFileOpen(u"Locate .fra animation", u"*.fra", nullptr, nullptr, defaults.directory.c_str(),
                        defaults.name.c_str(), chosen) == PRO_TK_USER_ABORT)
            return;
        chosen[std::size(chosen) - 1] = 0;
        ProUIInputpanelValueSet(dialogName, inputPanel, chosen);
        ProUIPushbuttonEnable(dialogName, exportButton);
    });
}

// A file that can't be opened is passed over without a word: the run goes
// on with the frames the table already has.
void acceptAnimationDialog(char*, char*, void* data) {
    toolkit::guardEntry(exportButton, [data] {
        VantrelPlugin& plugin = *static_cast<VantrelPlugin*>(data);
        ProWchar* text = nullptr;
        ProUIInputpanelWidestringGet(dialogName, inputPanel, &text);
        plugin.settings.fraPath = text ? std::u16string(text) : std::u16string();
        readFraFile(plugin.settings.fraPath, plugin.animationFrames, plugin.animationFrameCount);
        saveSettings(plugin);
        ProUIDialogExit(dialogName, 0);
        if (text) ProWstringFree(text);
    });
}

// Nothing changes: the run ends at the caller.
void cancelAnimationDialog(char*, char*, void*) {
    toolkit::guardEntry(cancelButton, [] { ProUIDialogExit(dialogName, -3); });
}
