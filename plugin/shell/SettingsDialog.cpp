#include "plugin/shell/SettingsDialog.h"

#include <cstring>
#include <string_view>

#include "export/ExportDrivers.h"
#include "plugin/core/SettingsFile.h"
#include "plugin/core/VantrelPlugin.h"
#include "plugin/shell/Commands.h"
#include "plugin/shell/DialogGrid.h"
#include "toolkit/HostCallback.h"
#include "toolkit/ProToolkit.h"

namespace {

constexpr const char* dialogName = "Vantrel_Settings";
constexpr const char* spinboxName = "stepbox";
constexpr const char* sliderName = "Vantrel_Tess_Level_Slider";
constexpr const char* axisGroup = "Vantrel_Axis_Radiogroup";
constexpr const char* selectionGroup = "Vantrel_Update_Radiogroup";
constexpr const char* okLayout = "Vantrel_OK_Layout";
constexpr const ProWchar messageFile[] = u"vantrel_plugin_msg.txt";

VantrelPlugin& pluginOf(void* data) { return *static_cast<VantrelPlugin*>(data); }

int sliderPosition(double quality) { return static_cast<int>(quality * 10000.0); }

struct Message {
    ProLine text = {};
    explicit Message(const char* key) { ProMessageToBuffer(text, messageFile, key); }
};

// A check button and the setting that it shows.
struct CheckSetting {
    int row;
    const char* name;
    const char* textKey;
    const char* helpKey;  // null: no help text
    bool PluginSettings::*field;
};

constexpr CheckSetting checkSettings[] = {
    {2, "Vantrel_Separate_Materials_Check", "vantrelPluginSettingsSeparateMaterialsLabel",
     "vantrelPluginSettingsSeparateMaterialsHelp", &PluginSettings::separateMaterials},
    {3, "Vantrel_Use_Assembly_Materials_Check", "vantrelPluginSettingsUseAssemblyAssignmentsLabel", nullptr,
     &PluginSettings::useAssemblyMaterials},
    {4, "Vantrel_NURBS_Check", "vantrelPluginSettingsNURBSLabel", "vantrelPluginSettingsNURBSHelp",
     &PluginSettings::includeNURBS},
    {7, "Vantrel_Mechanism_Prompt_Check", "vantrelPluginPromptForMechanismCheck", nullptr,
     &PluginSettings::promptForMechanism},
};

void addLabel(int row, const char* name, const ProWchar* text) {
    ProUIGridopts grid = dialogGrid(row, 0);
    ProUIDialogLabelAdd(dialogName, name, &grid);
    ProUILabelTextSet(dialogName, name, text);
    ProUILabelUnattachLeft(dialogName, name);
}

void addLabel(int row, const char* name, const char* key) { addLabel(row, name, Message(key).text); }

void addQualityControls(const VantrelPlugin& plugin) {
    const double quality = plugin.settings.tessellationQuality;
    addLabel(0, "Vantrel_Tess_Level_Label", "vantrelPluginSettingsLabelTess");
    ProUIGridopts spinboxGrid = dialogGrid(0, 1);
    ProUIDialogSpinboxAdd(dialogName, spinboxName, &spinboxGrid);
    ProUISpinboxInputtypeSet(dialogName, spinboxName, 3);
    ProUISpinboxDigitsSet(dialogName, spinboxName, 2);
    ProUISpinboxMindoubleSet(dialogName, spinboxName, 0.0);
    ProUISpinboxMaxdoubleSet(dialogName, spinboxName, 1.0);
    ProUISpinboxDoubleincrementSet(dialogName, spinboxName, 0.05);
    ProUISpinboxFastdoubleincrementSet(dialogName, spinboxName, 0.1);
    ProUISpinboxDoubleSet(dialogName, spinboxName, quality);
    ProUISpinboxHelptextSet(dialogName, spinboxName, Message("vantrelPluginSettingsTessHelp").text);

    addLabel(1, "Vantrel_Tess_Level_Slider_Label", "vantrelPluginSettingsLabelTess");
    ProUIGridopts sliderGrid = dialogGrid(1, 1);
    ProUIDialogSliderAdd(dialogName, sliderName, &sliderGrid);
    ProUISliderMinintegerSet(dialogName, sliderName, 0);
    ProUISliderMaxintegerSet(dialogName, sliderName, 10000);
    ProUISliderLengthSet(dialogName, sliderName, 25);
    ProUISliderOrientationSet(dialogName, sliderName, 0);
    ProUISliderTrackingEnable(dialogName, sliderName);
    ProUISliderIntegerSet(dialogName, sliderName, sliderPosition(quality));
    ProUISliderHelptextSet(dialogName, sliderName, Message("vantrelPluginSettingsTessHelp").text);
}

void addCheckButton(const CheckSetting& check, const PluginSettings& settings, const ProWchar* help) {
    ProUIGridopts grid = dialogGrid(check.row, 1);
    ProUIDialogCheckbuttonAdd(dialogName, check.name, &grid);
    ProUICheckbuttonTextSet(dialogName, check.name, Message(check.textKey).text);
    if (help) ProUICheckbuttonHelptextSet(dialogName, check.name, help);
    if (settings.*check.field) ProUICheckbuttonSet(dialogName, check.name);
}

// The animation prompt's help is two messages joined in one buffer.
void joinedHelp(ProWchar (&help)[128]) {
    Message first("vantrelPluginPromptForMechanismHelp"), second("vantrelPluginPromptForMechanismHelp2");
    std::u16string_view a(first.text), b(second.text);
    size_t length = 0;
    for (std::u16string_view part : {a, b})
        for (char16_t c : part)
            if (length + 1 < std::size(help)) help[length++] = c;
    help[length] = 0;
}

void addCheckButton(const CheckSetting& check, const PluginSettings& settings) {
    if (check.row == 7) {
        ProWchar help[128];
        joinedHelp(help);
        addCheckButton(check, settings, help);
    } else {
        addCheckButton(check, settings, check.helpKey ? Message(check.helpKey).text : nullptr);
    }
}

// A radio group with its names and labels; `selected` outside the names
// selects nothing.
void addRadioGroup(int row, const char* name, std::initializer_list<const char*> names,
                   std::initializer_list<const ProWchar*> labels, int selected, const char* helpKey) {
    ProUIGridopts grid = dialogGrid(row, 1);
    ProUIDialogRadiogroupAdd(dialogName, name, &grid);
    char* nameArray[6] = {};
    ProWchar* labelArray[6] = {};
    int count = 0;
    for (const char* option : names) nameArray[count++] = const_cast<char*>(option);
    count = 0;
    for (const ProWchar* label : labels) labelArray[count++] = const_cast<ProWchar*>(label);
    ProUIRadiogroupNamesSet(dialogName, name, count, nameArray);
    ProUIRadiogroupLabelsSet(dialogName, name, count, labelArray);
    ProUIRadiogroupOrientationSet(dialogName, name, 0);
    if (selected >= 0 && selected < count) ProUIRadiogroupSelectednamesSet(dialogName, name, 1, &nameArray[selected]);
    ProUIRadiogroupHelptextSet(dialogName, name, Message(helpKey).text);
}

void addChoices(const PluginSettings& settings) {
    addLabel(2, "Vantrel_Materials_Label", "vantrelPluginSettingsLabelMaterials");
    addCheckButton(checkSettings[0], settings);
    addCheckButton(checkSettings[1], settings);
    addLabel(4, "Vantrel_NURBS_Label", u"NURBS:");
    addCheckButton(checkSettings[2], settings);

    addLabel(5, "Vantrel_Axis_Label", "vantrelPluginSettingsAxisLabel");
    const auto& axes = upAxisChoices;
    addRadioGroup(5, axisGroup, {axes[0].name, axes[1].name, axes[2].name, axes[3].name, axes[4].name, axes[5].name},
                  {axes[0].label, axes[1].label, axes[2].label, axes[3].label, axes[4].label, axes[5].label},
                  settings.upAxis, "vantrelPluginSettingsAxisHelp");

    addLabel(6, "Vantrel_Update_Label", "vantrelPluginSettingsSelectionLabel");
    Message automatic("vantrelPluginSettingsAutomatic"), manual("vantrelPluginSettingsManual");
    addRadioGroup(6, selectionGroup, {"automatic", "manual"}, {automatic.text, manual.text}, settings.selectionMode,
                  "vantrelPluginSettingsSelectionHelp");

    addLabel(7, "Vantrel_Mechanism_Prompt_Label", "vantrelPluginPromptForMechanismLabel");
    addCheckButton(checkSettings[3], settings);
}

// The buttons of the last row, in their layout.
struct RowButton {
    const char* name;
    const char* textKey;
    const char* helpKey;
    ProUIAction action;
};

void applyThenUpdate(char* dialog, char* component, void* data);
void applyThenRender(char* dialog, char* component, void* data);

constexpr RowButton rowButtons[] = {
    {"Vantrel_Update", "vantrelPluginUpdate", "vantrelPluginSettingsUpdateHelp", applyThenUpdate},
    {"Vantrel_Export", "vantrelPluginRender", "vantrelPluginSettingsExportHelp", applyThenRender},
    {"Vantrel_OK", "vantrelPluginOK", "vantrelPluginSettingsOkHelp", applySettingsDialog},
    {"Vantrel_Cancel", "vantrelPluginCancel", "vantrelPluginSettingsCancelHelp", cancelSettingsDialog},
};

void addButtonRow() {
    ProUIGridopts separatorGrid = dialogGrid(8, 0);
    ProUIDialogSeparatorAdd(dialogName, "Vantrel_OK_Separator", &separatorGrid);
    ProUIGridopts layoutGrid = dialogGrid(9, 0);
    layoutGrid.horz_cells = 2;
    ProUIDialogLayoutAdd(dialogName, okLayout, &layoutGrid);
    ProUILayoutUnattachLeft(dialogName, okLayout);
    ProUILayoutUnattachRight(dialogName, okLayout);
    int column = 0;
    for (const RowButton& button : rowButtons) {
        ProUIGridopts grid = dialogGrid(0, column++);
        ProUILayoutPushbuttonAdd(dialogName, okLayout, button.name, &grid);
        ProUIPushbuttonTextSet(dialogName, button.name, Message(button.textKey).text);
        ProUIPushbuttonHelptextSet(dialogName, button.name, Message(button.helpKey).text);
    }
}

void setActions(VantrelPlugin& plugin) {
    ProUISpinboxUpdateActionSet(dialogName, spinboxName, spinboxChanged, &plugin);
    ProUISliderUpdateActionSet(dialogName, sliderName, sliderChanged, &plugin);
    for (const RowButton& button : rowButtons)
        ProUIPushbuttonActivateActionSet(dialogName, button.name, button.action, &plugin);
}

bool checkButtonIsSet(const char* name) {
    ProBoolean state = PRO_B_FALSE;
    ProUICheckbuttonGetState(dialogName, name, &state);
    return state == PRO_B_TRUE;
}

void applySettings(VantrelPlugin& plugin) {
    double quality = 0.0;
    ProUISpinboxDoubleGet(dialogName, spinboxName, &quality);
    plugin.setTessellationQuality(static_cast<float>(quality));

    int count = 0;
    char** names = nullptr;
    ProUIRadiogroupSelectednamesGet(dialogName, axisGroup, &count, &names);
    for (size_t axis = 0; count > 0 && names && axis < upAxisChoices.size(); ++axis)
        if (std::strcmp(names[0], upAxisChoices[axis].name) == 0) plugin.settings.upAxis = static_cast<int>(axis);

    count = 0;
    names = nullptr;
    ProUIRadiogroupSelectednamesGet(dialogName, selectionGroup, &count, &names);
    setSelectionMode(plugin, count > 0 && names && std::strcmp(names[0], "manual") == 0);
    ProStringarrayFree(names, count);

    // The dialog has no save-to-file controls: the read fails, the state
    // stays unset, and Render goes to the renderer.
    bool saveToFile = checkButtonIsSet("Vantrel_Save_Checkbutton");
    if (saveToFile) {
        ProWchar* directory = nullptr;
        ProUIInputpanelWidestringGet(dialogName, "Vantrel_Directory_Inputpanel", &directory);
        if (directory) plugin.settings.exportPath = directory;
        ProWstringFree(directory);
    }
    plugin.renderToFile = saveToFile;

    for (const CheckSetting& check : checkSettings) plugin.settings.*check.field = checkButtonIsSet(check.name);
    saveSettings(plugin);
    ProUIDialogExit(dialogName, 0);
}

void applyThenUpdate(char*, char*, void* data) {
    toolkit::guardEntry("Vantrel_Update", [data] {
        applySettings(pluginOf(data));
        updateLive(pluginOf(data));
    });
}

void applyThenRender(char*, char*, void* data) {
    toolkit::guardEntry("Vantrel_Export", [data] {
        applySettings(pluginOf(data));
        renderLive(pluginOf(data));
    });
}

}  // namespace

bool showSettingsDialog(VantrelPlugin& plugin) {
    loadSettings(plugin);
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR || !model) return false;
    ProUIDialogCreate(dialogName, nullptr);
    addQualityControls(plugin);
    addChoices(plugin.settings);
    addButtonRow();
    setActions(plugin);
    ProUIDialogDisableResizing(dialogName);
    int status = -1;
    ProUIDialogActivate(dialogName, &status);
    ProUIDialogDestroy(dialogName);
    return status == 0;
}

void applySettingsDialog(char*, char*, void* data) {
    toolkit::guardEntry("Vantrel_OK", [data] { applySettings(pluginOf(data)); });
}

void cancelSettingsDialog(char*, char*, void* data) {
    toolkit::guardEntry("Vantrel_Cancel", [data] {
        VantrelPlugin& plugin = pluginOf(data);
        plugin.settings.tessellationQuality = plugin.previousTessellationQuality;
        ProUIDialogExit(dialogName, -3);
    });
}

void sliderChanged(char*, char*, void* data) {
    toolkit::guardEntry("Vantrel_Tess_Level_Slider", [data] {
        int position = 0;
        ProUISliderIntegerGet(dialogName, sliderName, &position);
        const float quality = static_cast<float>(position) / 10000.0f;
        pluginOf(data).setTessellationQuality(quality);
        ProUISpinboxDoubleSet(dialogName, spinboxName, quality);
    });
}

void spinboxChanged(char*, char*, void* data) {
    toolkit::guardEntry("stepbox", [data] {
        double quality = 0.0;
        ProUISpinboxDoubleGet(dialogName, spinboxName, &quality);
        pluginOf(data).setTessellationQuality(static_cast<float>(quality));
        ProUISliderIntegerSet(dialogName, sliderName, sliderPosition(quality));
    });
}
