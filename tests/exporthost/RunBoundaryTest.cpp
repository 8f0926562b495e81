// Where a run meets the world: the model's name as every group carries it,
// and a scene file that can't be completed.
#include <gtest/gtest.h>

#include <string>

#include "platform/CodePage.h"
#include "tests/exporthost/ExportScenario.h"
#include "tests/support/LocaleScope.h"

namespace exporttest {
namespace {

using namespace host::fixtures;

using testsupport::LocaleScope;

// A part's name appears on the model's group, on the part's own group and on
// its objects: all narrow it one way, whatever the system code page holds.
TEST(RunBoundary, GroupsAndObjectsNameANonAsciiPartAlike) {
    struct Case {
        const char* locale;
        const char* expected;  // the name in the system code page
    };
#ifdef _WIN32
    // Windows narrows through the system's ANSI code page, whatever the C
    // library's locale: Western European under Wine's default settings.
    ASSERT_EQ(platform::systemCodePageName(), "windows-1252");
    const Case cases[] = {{"", "Zahnrad-\xe4"}};
#else
    const Case cases[] = {{"C", "Zahnrad-"}, {"C.UTF-8", "Zahnrad-\xc3\xa4"}};
#endif
    for (const Case& c : cases) {
        LocaleScope locale(c.locale);
        if (!locale.ok()) {
            ADD_FAILURE() << "the locale " << c.locale << " is not installed";
            continue;
        }
        ExportScenario run;
        run.setSetting("includeNURBS", "false");
        host::Model& gear = run.session.addModel(part(u"Zahnrad-\u00e4", 1));
        run.openAndExport(gear, PRO_MODE_PART);
        const scenereader::Document scene = run.readScene();
        const scenereader::Block& model = topGroup(scene);
        const scenereader::Block* solid = model.child("group");
        ASSERT_NE(solid, nullptr);
        EXPECT_EQ(model.name(), c.expected) << c.locale;
        EXPECT_EQ(solid->name(), c.expected) << c.locale;
        const std::vector<const scenereader::Block*> objects = objectsOf(*solid);
        ASSERT_FALSE(objects.empty());
        for (const scenereader::Block* object : objects) EXPECT_EQ(object->name(), c.expected) << c.locale;
    }
}

// A scene file that can't be opened (no such folder), or that opens and takes
// the writes but can't be closed (a full disk): the run ends there, with no
// finish dialog and no settings saved; the host lives on and the next export
// works.
TEST(RunBoundary, AFileThatCantBeOpenedOrClosedEndsTheRunAndTheNextExportWorks) {
    const std::pair<std::u16string, std::string> cases[] = {
        {u"/no/such/folder/scene.vnz", "Vantrel Plugin Export: could not open file"},
        {u"/dev/full", "Vantrel Plugin Export: could not close file"},
    };
    for (const auto& [file, message] : cases) {
        ExportScenario run;
        host::Model& plate = run.session.addModel(part(u"PLATE", 2));
        run.open(plate, PRO_MODE_PART);
        run.start();
        run.session.script().chooseFile(file);
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(run.press("Vantrel Plugin Export"), 0);
        const std::string reported = ::testing::internal::GetCapturedStderr();
        EXPECT_NE(reported.find(message), std::string::npos) << reported;
        EXPECT_TRUE(run.session.errors().empty()) << "no finish dialog was shown: " << run.session.errors().messages().front();
        EXPECT_FALSE(fs::exists(run.path("vantrel_plugin_settings.xml")));

        run.pressExport("after.vnz");
        EXPECT_EQ(topGroup(run.readScene("after.vnz")).name(), "PLATE");
        EXPECT_NE(run.settingsFile().find("after.vnz"), std::string::npos);
    }
}

}  // namespace
}  // namespace exporttest
