// The registry's look-ups over hives kept as registry-export files: the
// format's values and escapes, buffer sizes, key existence, and where each
// hive's file is found.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "platform/Registry.h"
#include "tests/toolkit/FileText.h"

namespace {

namespace fs = std::filesystem;
using platform::Hive;
using platform::RegistryKey;

// Points both hives into a folder of the test's own for its length.
class RegistryFiles : public testing::Test {
protected:
    RegistryFiles() : root(fs::temp_directory_path() / ("vantrel-registry-" + std::to_string(::getpid()))) {
        fs::remove_all(root);
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
            const char* value = std::getenv(name);
            saved.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
        }
        ::setenv("XDG_CONFIG_HOME", (root / "user").c_str(), 1);
        ::setenv("XDG_CONFIG_DIRS", ((root / "first").string() + "::" + (root / "second").string()).c_str(), 1);
    }
    ~RegistryFiles() override {
        for (const auto& [name, value] : saved) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
        fs::remove_all(root);
    }

    void write(const fs::path& folder, const std::string& bytes) {
        fs::create_directories(root / folder / "norvex");
        std::ofstream(root / folder / "norvex" / "registry.reg", std::ios::binary) << bytes;
    }

    fs::path root;
    std::vector<std::pair<std::string, std::optional<std::string>>> saved;
};

// The user hive as a registry export writes it: CRLF lines, escapes, numbers in hex.
std::string userHive() { return testsupport::fileText(PLATFORM_TEST_DATA "/user_hive.reg"); }

TEST_F(RegistryFiles, ReadsTextsAndNumbersWithTheirEscapes) {
    write("user", userHive());
    RegistryKey key = RegistryKey::open(Hive::CurrentUser, u"software\\NORVEX\\vantrel 6");
    ASSERT_TRUE(key.isOpen());
    EXPECT_EQ(key.readText(u"path", 512), u"C:\\Program Files\\Vantrel \"6\"");
    EXPECT_EQ(key.readNumber(u"Port"), 0x176fu);
    EXPECT_EQ(key.readNumber(u"Big"), 0xFFFFFFFEu);
    EXPECT_EQ(key.readText(u"", 512), u"default");
    // A value of the other type, or of a type not read, is missing.
    EXPECT_EQ(key.readText(u"Port", 512), std::nullopt);
    EXPECT_EQ(key.readNumber(u"Path"), std::nullopt);
    EXPECT_EQ(key.readText(u"Binary", 512), std::nullopt);
    EXPECT_EQ(key.readText(u"Absent", 512), std::nullopt);
    // Ten characters and the terminating zero take 22 bytes.
    EXPECT_EQ(key.readText(u"Long", 22), u"0123456789");
    EXPECT_EQ(key.readText(u"Long", 21), std::nullopt);
}

TEST_F(RegistryFiles, KeysExistWithASectionOfTheirOwnOrBelow) {
    write("user", userHive());
    EXPECT_TRUE(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex").isOpen());
    EXPECT_TRUE(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE").isOpen());
    EXPECT_FALSE(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex\\Vantrel").isOpen());
    EXPECT_FALSE(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex\\Elsewhere").isOpen());
    EXPECT_FALSE(RegistryKey::open(Hive::LocalMachine, u"SOFTWARE\\Norvex\\Elsewhere").isOpen());
    RegistryKey closed;
    EXPECT_EQ(closed.readText(u"Path", 512), std::nullopt);
}

TEST_F(RegistryFiles, TheMachineHiveIsTheFirstFileOnTheConfigurationPath) {
    write("second", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"From\"=\"second\"\n");
    EXPECT_EQ(RegistryKey::open(Hive::LocalMachine, u"SOFTWARE\\Norvex").readText(u"From", 64), u"second");
    write("first", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"From\"=\"first\"\n");
    EXPECT_EQ(RegistryKey::open(Hive::LocalMachine, u"SOFTWARE\\Norvex").readText(u"From", 64), u"first");
    EXPECT_FALSE(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex").isOpen());
}

TEST_F(RegistryFiles, ReadsTheEditorsUtf16Files) {
    std::u16string text = u"\uFEFFWindows Registry Editor Version 5.00\r\n\r\n"
                          u"[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\r\n\"Name\"=\"Gr\u00FC\u00DFe \u6E32\u67D3\"\r\n";
    std::string bytes;
    for (char16_t c : text) bytes += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    write("user", bytes);
    EXPECT_EQ(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex").readText(u"Name", 64),
              u"Gr\u00FC\u00DFe \u6E32\u67D3");
}

TEST_F(RegistryFiles, ReadsUtf8FilesAndKeepsNoStateBetweenOpens) {
    write("user", "\xEF\xBB\xBF[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\n\"Name\"=\"Gr\xC3\xBC\xC3\x9F" "e\"\n");
    RegistryKey key = RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex");
    write("user", "");
    // The open key keeps what it read; a new open sees the file as it is now.
    EXPECT_EQ(key.readText(u"Name", 64), u"Gr\u00FC\u00DFe");
    EXPECT_FALSE(RegistryKey::open(Hive::CurrentUser, u"SOFTWARE\\Norvex").isOpen());
    RegistryKey moved = std::move(key);
    EXPECT_FALSE(key.isOpen());
    EXPECT_EQ(moved.readText(u"Name", 64), u"Gr\u00FC\u00DFe");
}

}  // namespace
