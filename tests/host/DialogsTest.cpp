#include <vector>

#include "tests/host/HostOperationsTest.h"
#include "tests/host/PluginFolder.h"

namespace {

// What the button actions of a test saw.
struct Clicks {
    std::vector<std::string> buttons;
    int exitWith = 0;
    size_t exitOnClick = 1;  // the click whose action ends the dialog
};

void clickAction(char* dialog, char* button, ProAppData data) {
    auto& clicks = *static_cast<Clicks*>(data);
    clicks.buttons.push_back(button);
    if (clicks.buttons.size() == clicks.exitOnClick) {
        host::shims::ProUIDialogExit(host::applicationContext, dialog, clicks.exitWith);
    }
}

class Dialogs : public HostOperations {
protected:
    // The finish dialog as the plug-in builds it, its label read from a
    // message file named without its extension.
    void buildFinishDialog() {
        folder.write("text/vantrel_plugin_msg.txt",
                     "vantrelPluginExportFinishedLabel\nExport finished.\n#\n#\nvantrelPluginOK\nOK\n#\n#\n");
        session().texts().setRoot(folder.root(), "usascii");
        ProUIGridopts grid{0, 0, 1, 1, 1, 1, 1, 1, 1, 1, -1, -1, -1, -1};
        ASSERT_EQ(host::shims::ProUIDialogCreate(context, "ExportFinished", nullptr), PRO_TK_NO_ERROR);
        ASSERT_EQ(host::shims::ProUIDialogLabelAdd(context, "ExportFinished", "ExportFinishedLabel", &grid), 0);
        grid.row = 1;
        ASSERT_EQ(host::shims::ProUIDialogPushbuttonAdd(context, "ExportFinished", "ExportOk", &grid), 0);
        ProLine text;
        host::shims::ProMessageToBuffer(context, text, u"vantrel_plugin_msg", "vantrelPluginExportFinishedLabel");
        ASSERT_EQ(host::shims::ProUILabelTextSet(context, "ExportFinished", "ExportFinishedLabel", text), 0);
        host::shims::ProMessageToBuffer(context, text, u"vantrel_plugin_msg.txt", "vantrelPluginOK");
        ASSERT_EQ(host::shims::ProUIPushbuttonTextSet(context, "ExportFinished", "ExportOk", text), 0);
        ASSERT_EQ(
            host::shims::ProUIPushbuttonActivateActionSet(context, "ExportFinished", "ExportOk", clickAction, &clicks),
            0);
    }

    PluginFolder folder;
    Clicks clicks;
};

TEST_F(Dialogs, PressesGoOnUntilAnActionExits) {
    buildFinishDialog();
    for (int press = 0; press < 4; ++press) session().script().pressButton("ExportFinished", "ExportOk");
    clicks.exitOnClick = 2;
    clicks.exitWith = 7;
    int status = -1;
    EXPECT_EQ(host::shims::ProUIDialogActivate(context, "ExportFinished", &status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, 7);
    EXPECT_EQ(clicks.buttons.size(), 2u);
    EXPECT_EQ(session().dialogs().history()[0].steps, (std::vector<std::string>{"press ExportOk", "press ExportOk"}));
    EXPECT_EQ(session().dialogs().history()[0].exitStatus, 7);
    // With the script's presses spent before an action ends it, the activation fails.
    clicks.buttons.clear();
    clicks.exitOnClick = 3;
    EXPECT_NE(host::shims::ProUIDialogActivate(context, "ExportFinished", nullptr), PRO_TK_NO_ERROR);
    EXPECT_EQ(clicks.buttons.size(), 2u);
    EXPECT_EQ(log().size(), 1u);
}

TEST_F(Dialogs, AnUnscriptedDialogOrAPressOfNoButtonIsReportedAndRunsNothing) {
    buildFinishDialog();
    int status = 5;
    EXPECT_NE(host::shims::ProUIDialogActivate(context, "ExportFinished", &status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, 5);
    session().script().pressButton("ExportFinished", "Cancel");
    EXPECT_NE(host::shims::ProUIDialogActivate(context, "ExportFinished", &status), PRO_TK_NO_ERROR);
    EXPECT_TRUE(clicks.buttons.empty());
    ASSERT_EQ(log().size(), 2u);
    EXPECT_EQ(log()[0],
              "the plug-in asked for a step of the user in a dialog (\"ExportFinished\") but the script has "
              "no answer for it");
    EXPECT_EQ(log()[1],
              "ProUIDialogActivate: the script pressed \"Cancel\" in dialog \"ExportFinished\", which has "
              "no such push button");
    const auto& history = session().dialogs().history();
    ASSERT_EQ(history.size(), 2u);
    EXPECT_FALSE(history[0].exitStatus);
    EXPECT_FALSE(history[1].exitStatus);
    EXPECT_FALSE(session().dialogs().find("ExportFinished")->active);
}

TEST_F(Dialogs, ComponentsAndDialogsMustExist) {
    ProUIGridopts grid{};
    EXPECT_NE(host::shims::ProUIDialogLabelAdd(context, "Nowhere", "Label", &grid), PRO_TK_NO_ERROR);
    host::shims::ProUIDialogCreate(context, "D", "");
    EXPECT_NE(host::shims::ProUIDialogCreate(context, "D", ""), PRO_TK_NO_ERROR);
    host::shims::ProUIDialogLabelAdd(context, "D", "Label", &grid);
    EXPECT_NE(host::shims::ProUIDialogPushbuttonAdd(context, "D", "Label", &grid), PRO_TK_NO_ERROR);
    EXPECT_NE(host::shims::ProUIPushbuttonTextSet(context, "D", "Label", u"x"), PRO_TK_NO_ERROR) << "no push button";
    EXPECT_NE(host::shims::ProUIDialogExit(context, "D", 0), PRO_TK_NO_ERROR) << "not active";
    EXPECT_NE(host::shims::ProUIDialogDestroy(context, "Nowhere"), PRO_TK_NO_ERROR);
    EXPECT_EQ(log().size(), 5u);
    // A component that isn't there, or is of another kind, is an answer the
    // real host gives too: an error status, kept apart from the plug-in's faults.
    double value = 9.0;
    int position = 9, count = 9;
    ProBoolean state = 9;
    char** names = nullptr;
    ProWchar* text = nullptr;
    EXPECT_EQ(host::shims::ProUISpinboxDoubleGet(context, "D", "Label", &value), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host::shims::ProUISliderIntegerGet(context, "D", "none", &position), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host::shims::ProUICheckbuttonGetState(context, "D", "none", &state), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host::shims::ProUIRadiogroupSelectednamesGet(context, "D", "none", &count, &names), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host::shims::ProUIInputpanelWidestringGet(context, "Nowhere", "none", &text), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host::shims::ProUISliderIntegerSet(context, "D", nullptr, 1), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(std::make_tuple(value, position, count, state, names, text),
              std::make_tuple(9.0, 9, 9, 9, nullptr, nullptr)) << "outputs untouched";
    const auto& refusals = session().dialogs().refusals();
    ASSERT_EQ(refusals.size(), 5u);
    EXPECT_EQ(refusals[0], "ProUIPushbuttonTextSet: dialog \"D\" has no push button \"Label\"");
    EXPECT_EQ(refusals[1], "ProUISpinboxDoubleGet: dialog \"D\" has no spinbox \"Label\"");
    EXPECT_EQ(log().size(), 6u) << "only the unknown dialog is the plug-in's fault";
    EXPECT_EQ(host::shims::ProUIDialogDestroy(context, "D"), PRO_TK_NO_ERROR);
    EXPECT_EQ(session().dialogs().open(), 0u);
}

}  // namespace
