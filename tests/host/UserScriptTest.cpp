#include <gtest/gtest.h>

#include "host/Session.h"

namespace {

TEST(UserScript, AnswersComeInOrderPerKindAndButtonsPerDialog) {
    host::Session session;
    host::UserScript& script = session.script();
    script.chooseFile(u"/tmp/out.vnz");
    script.cancelFile();
    script.select({{5, 7}, {}});
    script.cancelRepresentation();
    script.setValue("Vantrel_Settings", "stepbox", "0.25");
    script.pressButton("Vantrel_Settings", "Vantrel_OK");
    script.pressButton("ExportFinished", "ExportOk");

    auto chosen = script.nextFile("Save as vnz");
    ASSERT_TRUE(chosen);
    EXPECT_FALSE(chosen->cancelled);
    EXPECT_EQ(chosen->path, u"/tmp/out.vnz");
    EXPECT_TRUE(script.nextFile("Save as vnz")->cancelled);
    auto selection = script.nextSelection("prt_or_asm");
    ASSERT_TRUE(selection);
    EXPECT_EQ(selection->picks, (std::vector<host::ComponentPath>{{5, 7}, {}}));
    EXPECT_TRUE(script.nextRepresentation("Rep")->cancelled);
    EXPECT_EQ(script.nextStep("ExportFinished")->describe(), "press ExportOk");
    EXPECT_FALSE(script.finished());
    EXPECT_EQ(script.nextStep("Vantrel_Settings")->describe(), "set stepbox to 0.25");
    EXPECT_EQ(script.nextStep("Vantrel_Settings")->describe(), "press Vantrel_OK");
    EXPECT_TRUE(script.finished());
    EXPECT_TRUE(session.errors().empty());
}

TEST(UserScript, QuestionsWithoutAnAnswerAreLogged) {
    host::Session session;
    session.script().pressButton("ExportFinished", "ExportOk");
    EXPECT_FALSE(session.script().nextFile("Save as vnz"));
    EXPECT_FALSE(session.script().nextStep("Vantrel_Settings"));
    ASSERT_EQ(session.errors().messages().size(), 2u);
    EXPECT_EQ(session.errors().messages()[0],
              "the plug-in asked for a file (\"Save as vnz\") but the script has no answer for it");
    EXPECT_EQ(session.errors().messages()[1],
              "the plug-in asked for a step of the user in a dialog (\"Vantrel_Settings\") but the script has no "
              "answer for it");
    EXPECT_FALSE(session.script().finished());
}

}  // namespace
