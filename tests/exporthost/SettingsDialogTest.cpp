// The settings dialog as a user meets it: what it shows, how its two quality
// controls keep in step, and what OK, Cancel, Update and Render do.
#include <gtest/gtest.h>

#include <cstring>

#include "host/DialogBoard.h"
#include "tests/exporthost/ExportScenario.h"
#include "tests/toolkit/FileText.h"

namespace exporttest {
namespace {

using namespace host::fixtures;

constexpr const char* dialog = "Vantrel_Settings";

std::string expectedLayout() { return testsupport::fileText(VANTREL_TEST_DATA "/settings_dialog.txt"); }

// A part open in the session and the plug-in started with these settings.
class SettingsDialog : public ::testing::Test {
protected:
    void open(std::initializer_list<std::pair<const char*, const char*>> settings) {
        for (const auto& [element, text] : settings) run.setSetting(element, text);
        host::Model& plate = run.session.addModel(part(u"PLATE", 1));
        run.open(plate, PRO_MODE_PART);
        run.start();
    }
    host::UserScript& script() { return run.session.script(); }
    int press() { return run.press("Vantrel Plugin Settings"); }
    const host::ShownDialog& shown(size_t index = 0) const {
        return run.session.dialogs().history().at(index);
    }
    const host::DialogComponent& closing(const char* name, size_t index = 0) const {
        for (const host::DialogComponent& c : shown(index).closing)
            if (c.name == name) return c;
        throw std::runtime_error(std::string("no component ") + name);
    }
    bool savedHas(const std::string& element) const { return run.settingsFile().find(element) != std::string::npos; }

    ExportScenario run;
};

TEST_F(SettingsDialog, ShowsEveryComponentInItsPlaceWithTheSettingsOfTheFile) {
    open({{"tessellationQuality", "0.57"}, {"upAxis", "2"}, {"selectionMode", "manual"}, {"separateMaterials", "false"},
          {"useAssemblyMaterials", "true"}, {"includeNURBS", "true"}, {"promptForMechanism", "false"}});
    const std::string before = run.settingsFile();
    script().pressButton(dialog, "Vantrel_Cancel");
    EXPECT_EQ(press(), 0);

    ASSERT_EQ(run.session.dialogs().history().size(), 1u);
    EXPECT_EQ(host::drawDialog(dialog, shown().components), expectedLayout());
    for (const host::DialogComponent& c : shown().components) {
        ProUIGridopts expected{c.grid.column, c.grid.row, c.name == "Vantrel_OK_Layout" ? 2 : 1, 1, 1, 1, 1, 1, 1, 1,
                               -1, -1, -1, -1};
        EXPECT_EQ(std::memcmp(&c.grid, &expected, sizeof expected), 0) << c.name;
    }
    EXPECT_EQ(shown().exitStatus, -3);
    EXPECT_EQ(run.settingsFile(), before) << "Cancel saves nothing";
    EXPECT_TRUE(run.session.errors().empty());
}

TEST_F(SettingsDialog, TheSliderMovesTheSpinboxAndOkSavesWhatWasSet) {
    open({{"tessellationQuality", "0.2"}});
    script().setValue(dialog, "Vantrel_Tess_Level_Slider", "1234");
    script().setValue(dialog, "Vantrel_Axis_Radiogroup", "nzaxis");
    script().setValue(dialog, "Vantrel_NURBS_Check", "off");
    script().setValue(dialog, "Vantrel_Mechanism_Prompt_Check", "on");
    script().pressButton(dialog, "Vantrel_OK");
    EXPECT_EQ(press(), 0);
    // The slider's step is held in single precision, and so is the quality.
    EXPECT_EQ(closing("stepbox").doubleValue, static_cast<double>(1234 / 10000.0f));
    EXPECT_EQ(shown().exitStatus, 0);
    for (const char* saved : {"<tessellationQuality>0.123400</tessellationQuality>", "<upAxis>5</upAxis>",
                              "<includeNURBS>false</includeNURBS>", "<promptForMechanism>true</promptForMechanism>",
                              "<separateMaterials>true</separateMaterials>", "<selectionMode>automatic</selectionMode>"})
        EXPECT_TRUE(savedHas(saved)) << saved << " in\n" << run.settingsFile();
}

TEST_F(SettingsDialog, TheSpinboxMovesTheSliderToTheTruncatedPosition) {
    open({{"tessellationQuality", "0.5"}});
    // 0.57 times 10000 is 5699.999999999999 in double precision.
    const std::pair<const char*, int> steps[] = {{"0.25", 2500}, {"0.57", 5699}, {"1", 10000}};
    for (size_t i = 0; i < std::size(steps); ++i) {
        script().setValue(dialog, "stepbox", steps[i].first);
        script().pressButton(dialog, "Vantrel_Cancel");
        press();
        EXPECT_EQ(closing("Vantrel_Tess_Level_Slider", i).integerValue, steps[i].second) << steps[i].first;
    }
}

// Cancel undoes one step only, and what it leaves is what the next save of
// the settings (here by a selection command) writes.
TEST_F(SettingsDialog, CancelRestoresTheQualityBeforeTheLastChangeOnly) {
    open({{"tessellationQuality", "0.2"}, {"selectionMode", "automatic"}});
    const std::string before = run.settingsFile();
    script().setValue(dialog, "stepbox", "0.5");
    script().setValue(dialog, "stepbox", "0.75");
    script().setValue(dialog, "Vantrel_Update_Radiogroup", "manual");
    script().pressButton(dialog, "Vantrel_Cancel");
    press();
    EXPECT_EQ(run.settingsFile(), before) << "Cancel wrote the file";
    EXPECT_EQ(run.press("Automatic selection"), 0);
    EXPECT_TRUE(savedHas("<tessellationQuality>0.500000</tessellationQuality>")) << run.settingsFile();
    EXPECT_TRUE(savedHas("<selectionMode>automatic</selectionMode>"));
}

TEST_F(SettingsDialog, AValueOutsideTheRadioNamesSelectsNothingAndOkLeavesIt) {
    open({{"upAxis", "7"}});
    script().pressButton(dialog, "Vantrel_OK");
    press();
    EXPECT_TRUE(closing("Vantrel_Axis_Radiogroup").selectedNames.empty());
    EXPECT_TRUE(savedHas("<upAxis>7</upAxis>"));
}

TEST_F(SettingsDialog, NoCurrentModelOpensNoDialog) {
    run.start();
    EXPECT_EQ(press(), 0);
    EXPECT_TRUE(run.session.dialogs().history().empty());
    EXPECT_TRUE(run.session.errors().empty());
}

// The run buttons apply first: Update then asks for the picks of the mode
// just chosen, and Render runs with the settings already saved.
TEST_F(SettingsDialog, UpdateAndRenderApplyTheSettingsAndThenStartTheirRun) {
    run.setSetting("selectionMode", "automatic");
    host::Model& plate = run.session.addModel(part(u"PLATE", 1));
    host::Model& top = run.session.addModel(assembly(u"TOP"));
    addComponent(top, &plate, 11);
    run.open(top, PRO_MODE_ASSEMBLY);
    run.start();
    script().setValue(dialog, "Vantrel_Update_Radiogroup", "manual");
    script().pressButton(dialog, "Vantrel_Update");
    script().select({});
    press();
    EXPECT_EQ(run.session.selectRequests().size(), 1u) << "the Update asked for picks in the mode just set";
    EXPECT_TRUE(savedHas("<selectionMode>manual</selectionMode>"));

    script().setValue(dialog, "Vantrel_Axis_Radiogroup", "xaxis");
    script().pressButton(dialog, "Vantrel_Export");
    ::testing::internal::CaptureStdout();
    press();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Failed") << "no renderer is installed here";
    EXPECT_TRUE(savedHas("<upAxis>0</upAxis>"));
    EXPECT_EQ(shown(1).exitStatus, 0);
}

}  // namespace
}  // namespace exporttest
