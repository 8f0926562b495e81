#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "host/MessageFile.h"
#include "host/OperationShims.h"
#include "host/ops/OperationSupport.h"
#include "tests/host/PluginFolder.h"
#include "tests/toolkit/FileText.h"

namespace {

using host::MessageFile;

TEST(MessageFile, ReadsMessagesAcrossLineEndsBlankLinesAndTranslations) {
    std::string error;
    // A byte order mark, CRLF and LF lines, blank lines, a translation and no final line end.
    std::optional<MessageFile> file =
        MessageFile::parse(testsupport::fileText(HOST_TEST_DATA "/mixed_line_ends_msg.txt"), error);
    ASSERT_TRUE(file) << error;
    EXPECT_EQ(file->size(), 3u);
    ASSERT_NE(file->find("first"), nullptr);
    EXPECT_EQ(file->find("first")->english, u"First text");
    EXPECT_FALSE(file->find("first")->translation);
    EXPECT_EQ(file->find("second")->english, u"Second text");
    EXPECT_EQ(file->find("second")->translation, u"Zweiter Text");
    EXPECT_EQ(file->find("umlaut")->english, u"Gr\u00FC\u00DFe");
    EXPECT_EQ(file->find("First"), nullptr);
}

TEST(MessageFile, MalformedFilesNameTheLineAndTheFault) {
    struct Case {
        const char* content;
        const char* error;
    };
    const Case cases[] = {
        {"key\ntext\n#\n", "line 1: message \"key\" is incomplete: a message has four lines"},
        {"key\ntext\n#\nmore\n", "line 4: expected \"#\" to close message \"key\", found \"more\""},
        {"#\ntext\n#\n#\n", "line 1: expected a keyword, found \"#\""},
        {"a\nA\n#\n#\na\nB\n#\n#\n", "line 5: message \"a\" is defined twice"},
    };
    for (const Case& bad : cases) {
        std::string error;
        EXPECT_FALSE(MessageFile::parse(bad.content, error)) << bad.content;
        EXPECT_EQ(error, bad.error);
    }
}

// The message and configuration operations, called as the plug-in calls them.
class MessageOperations : public testing::Test {
protected:
    MessageOperations() { session.texts().setRoot(folder.root(), "usascii"); }

    // Answers the status and fills `text` from a buffer larger than a line,
    // whose unit after the line must stay untouched.
    ProError messageToBuffer(const char16_t* file, const char* key, std::u16string& text) {
        std::array<ProWchar, 90> buffer;
        buffer.fill(u'~');
        ProError status = host::shims::ProMessageToBuffer(host::applicationContext, buffer.data(), file, key);
        EXPECT_EQ(buffer[81], u'~') << "written past the line";
        text.assign(buffer.data(), std::find(buffer.begin(), buffer.begin() + 81, u'\0'));
        return status;
    }

    PluginFolder folder;
    host::Session session;
    host::SessionActivation activation{session};
    std::u16string text;
};

TEST_F(MessageOperations, LanguageFolderComesBeforeThePlainFolder) {
    folder.write("text/usascii/m.txt", "k\nFrom language\nTranslated\n#\n");
    folder.write("text/m.txt", "k\nFrom plain\n#\n#\nonly\nPlain only\n#\n#\n");
    folder.write("text/p.txt", "k\nPlain file\n#\n#\n");
    EXPECT_EQ(messageToBuffer(u"m.txt", "k", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text, u"From language");
    // The file is found once; the plain one is not searched for other keys.
    EXPECT_EQ(messageToBuffer(u"m.txt", "only", text), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(messageToBuffer(u"p.txt", "k", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text, u"Plain file");
}

TEST_F(MessageOperations, OtherLanguagesShowTheTranslationWhereThereIsOne) {
    folder.write("text/german/m.txt", "k\nEnglish\nDeutsch\n#\nu\nUntranslated\n#\n#\n");
    session.texts().setRoot(folder.root(), "german");
    EXPECT_EQ(messageToBuffer(u"m.txt", "k", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text, u"Deutsch");
    EXPECT_EQ(messageToBuffer(u"m.txt", "u", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text, u"Untranslated");
}

TEST_F(MessageOperations, LongTextIsCutToEightyUnits) {
    std::string longText(100, 'a');
    longText[79] = 'z';
    folder.write("text/m.txt", "long\n" + longText + "\n#\n#\n");
    EXPECT_EQ(messageToBuffer(u"m.txt", "long", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text.size(), 80u);
    EXPECT_EQ(text.back(), u'z');
}

TEST_F(MessageOperations, FailuresLeaveAnEmptyBufferAndTheReasonInTheLog) {
    folder.write("text/m.txt", "k\nText\n#\n#\n");
    folder.write("text/usascii/bad.txt", "k\nText\n#\nnot closed\n");
    EXPECT_EQ(messageToBuffer(u"m.txt", "absent", text), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(text, u"");
    EXPECT_EQ(messageToBuffer(u"bad.txt", "k", text), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(messageToBuffer(u"absent", "k", text), PRO_TK_E_NOT_FOUND);
    const auto& log = session.errors().messages();
    ASSERT_EQ(log.size(), 3u);
    EXPECT_NE(log[0].find("has no message \"absent\""), std::string::npos) << log[0];
    std::string badFile = (folder.root() / "text" / "usascii" / "bad.txt").string();
    EXPECT_EQ(log[1], "ProMessageToBuffer: message file \"" + badFile +
                          "\": line 4: expected \"#\" to close message \"k\", found \"not closed\"");
    EXPECT_NE(log[2].find("message file \"absent\" not found"), std::string::npos) << log[2];
}

TEST_F(MessageOperations, ANameWithoutExtensionAlsoFindsItsTxtFileInEachFolder) {
    folder.write("text/usascii/vantrel_plugin_msg.txt", "k\nFrom language\n#\n#\n");
    folder.write("text/vantrel_plugin_msg", "k\nPlain, exact name\n#\n#\n");
    folder.write("text/plain_only.txt", "k\nPlain txt\n#\n#\n");
    EXPECT_EQ(messageToBuffer(u"vantrel_plugin_msg", "k", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text, u"From language");
    EXPECT_EQ(messageToBuffer(u"plain_only", "k", text), PRO_TK_NO_ERROR);
    EXPECT_EQ(text, u"Plain txt");
    // A name with another extension is taken as it is.
    EXPECT_EQ(messageToBuffer(u"plain_only.msg", "k", text), PRO_TK_E_NOT_FOUND);
}

TEST_F(MessageOperations, ConfigOptionsAreFoundByExactNameAndCutToALine) {
    session.setConfigOption("what", u"value");
    session.setConfigOption("long", std::u16string(100, u'v'));
    ProLine value;
    auto option = [&](const char* name, int context = host::applicationContext) {
        value[0] = u'\0';
        ProError status = host::shims::ProConfigoptGet(context, name, value);
        return std::pair<ProError, std::u16string>(status, value);
    };
    EXPECT_EQ(option("what").first, PRO_TK_NO_ERROR);
    EXPECT_EQ(option("what").second, u"value");
    EXPECT_EQ(option("long").second, std::u16string(80, u'v'));
    EXPECT_EQ(option("What").first, PRO_TK_E_NOT_FOUND);
    // A call with another context is refused.
    EXPECT_EQ(option("what", host::applicationContext + 1).first, PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(host::shims::ProMessageToBuffer(0, value, u"m.txt", "k"), PRO_TK_GENERAL_ERROR);
}

}  // namespace
