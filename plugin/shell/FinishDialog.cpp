#include "plugin/shell/FinishDialog.h"

#include "plugin/shell/DialogGrid.h"
#include "toolkit/HostCallback.h"
#include "toolkit/ProToolkit.h"

namespace {

constexpr const char* dialogName = "ExportFinished";

void closeExportFinished(char*, char*, ProAppData) {
    toolkit::guardEntry("ExportOk", [] { ProUIDialogExit(dialogName, 0); });
}

}  // namespace

void showExportFinished() {
    ProUIDialogCreate(dialogName, nullptr);

    ProUIGridopts labelGrid = dialogGrid(0, 0);
    ProUIDialogLabelAdd(dialogName, "ExportFinishedLabel", &labelGrid);
    ProLine text = {};
    // The label's message file is named without its extension.
    ProMessageToBuffer(text, u"vantrel_plugin_msg", "vantrelPluginExportFinishedLabel");
    ProUILabelTextSet(dialogName, "ExportFinishedLabel", text);

    ProUIGridopts buttonGrid = dialogGrid(1, 0);
    ProUIDialogPushbuttonAdd(dialogName, "ExportOk", &buttonGrid);
    ProLine okText = {};
    ProMessageToBuffer(okText, u"vantrel_plugin_msg.txt", "vantrelPluginOK");
    ProUIPushbuttonTextSet(dialogName, "ExportOk", okText);
    ProUIPushbuttonActivateActionSet(dialogName, "ExportOk", closeExportFinished, nullptr);

    ProUIDialogActivate(dialogName, nullptr);
    ProUIDialogDestroy(dialogName);
}
