#include <gtest/gtest.h>

#include <optional>

#include "host/Host.h"
#include "tests/host/PluginFolder.h"

namespace {

class CommandsTest : public testing::Test {
protected:
    void load() {
        host.emplace(session, folder.plugin());
        record.emplace(folder.plugin());
    }
    const host::RegisteredCommand& testCommand() const {
        const host::RegisteredCommand* command = session.commands().find("Test Command");
        if (!command) throw std::runtime_error("\"Test Command\" is not registered");
        return *command;
    }

    PluginFolder folder;
    host::Session session;
    std::optional<host::Host> host;
    std::optional<PluginRecordReader> record;
};

TEST_F(CommandsTest, RegistrationKeepsDesignationResolvedTextsAndIcon) {
    folder.write("text/usascii/test_plugin_msg.txt", testMessageFile);
    folder.write("text/resource/test.png", "resource");
    folder.write("text/test.png", "plain");
    load();
    EXPECT_EQ((*record)->actionAddStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ((*record)->duplicateAddStatus, -5);
    EXPECT_EQ((*record)->designateStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ((*record)->iconStatus, PRO_TK_NO_ERROR);
    ASSERT_EQ(session.commands().size(), 2u);

    const host::RegisteredCommand& command = testCommand();
    EXPECT_EQ(command.priority, 2);
    EXPECT_EQ(command.allowInNonActiveWindow, PRO_B_TRUE);
    EXPECT_EQ(command.allowInAccessoryWindow, PRO_B_FALSE);
    EXPECT_TRUE(command.designated);
    EXPECT_EQ(command.labelKey, "testCommand");
    EXPECT_EQ(command.helpKey, "testCommandHelp");
    EXPECT_EQ(command.description, "Test Command");
    EXPECT_EQ(command.messageFile, u"test_plugin_msg.txt");
    EXPECT_EQ(command.label.text, u"Test label");
    EXPECT_EQ(command.help.text, u"Test help text");
    ASSERT_NE(command.icon(), nullptr);
    EXPECT_EQ(command.icon()->file, "test.png");
    // The resource folder comes before the plain text folder.
    EXPECT_EQ(command.icon()->foundAt, folder.root() / "text" / "resource" / "test.png");

    const host::RegisteredCommand* unavailable = session.commands().find("Unavailable Command");
    ASSERT_NE(unavailable, nullptr);
    EXPECT_FALSE(unavailable->designated);
    EXPECT_EQ(unavailable->icon(), nullptr);
    EXPECT_NE(command.id, unavailable->id);
}

TEST_F(CommandsTest, PressRunsTheActionWhichCallsBackIntoTheHost) {
    folder.write("text/usascii/test_plugin_msg.txt", testMessageFile);
    folder.write("text/pressed.png", "plain");
    load();
    EXPECT_EQ(host->press("Test Command"), testCommandAnswer);
    EXPECT_EQ((*record)->presses, 1);
    EXPECT_EQ((*record)->messageStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ((*record)->message, u"Pressed");
    EXPECT_EQ((*record)->pressIconStatus, PRO_TK_NO_ERROR);

    // The icon set at start had no file; the one set by the press is found in
    // the plain text folder. Both stay in the history.
    const auto& history = testCommand().iconHistory;
    ASSERT_EQ(history.size(), 2u);
    EXPECT_EQ(history[0].file, "test.png");
    EXPECT_FALSE(history[0].foundAt);
    EXPECT_EQ((*record)->iconStatus, PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(history[1].file, "pressed.png");
    EXPECT_EQ(history[1].foundAt, folder.root() / "text" / "pressed.png");
    EXPECT_TRUE(session.errors().empty());
}

TEST_F(CommandsTest, UnknownAndUnavailableCommandsAreErrors) {
    load();
    EXPECT_EQ(hostErrorOf([&] { host->press("Test command"); }), "unknown command \"Test command\"");
    std::string unavailable = hostErrorOf([&] { host->press("Unavailable Command"); });
    EXPECT_EQ(unavailable, "command \"Unavailable Command\" is not available (its access function answered 0)");
    EXPECT_EQ((*record)->presses, 0);
}

TEST_F(CommandsTest, UnresolvableTextsKeepTheirReason) {
    folder.write("text/usascii/test_plugin_msg.txt", "testCommand\nTest label\n#\n#\n");
    load();
    const host::RegisteredCommand& command = testCommand();
    EXPECT_EQ(command.label.text, u"Test label");
    EXPECT_FALSE(command.help.text);
    EXPECT_NE(command.help.error.find("has no message \"testCommandHelp\""), std::string::npos) << command.help.error;

    host->press("Test Command");
    EXPECT_EQ((*record)->messageStatus, PRO_TK_E_NOT_FOUND);
    EXPECT_EQ((*record)->message, u"");
    ASSERT_EQ(session.errors().messages().size(), 1u);
    EXPECT_NE(session.errors().messages()[0].find("\"testMessage\""), std::string::npos);
}

}  // namespace
