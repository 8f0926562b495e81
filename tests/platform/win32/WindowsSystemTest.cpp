// The Windows side of the platform seam against the real system calls (under
// Wine on the build machine): code page conversions, files by wide path, the
// live road's registry look-ups, the launch, the dynamic library, and the
// log's time and folder.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <regex>
#include <thread>

#include "importers/sceneapi/SceneApiLog.h"
#include "importers/sceneapi/VantrelInstallation.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/DynamicLibrary.h"
#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/TextCodec.h"

namespace {

namespace fs = std::filesystem;
using platform::NarrowEncoding;

const wchar_t* wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// The tests run with the ANSI code page 1252, which Wine gives the C locale.
class CodePage1252 : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(GetACP(), 1252u) << "the tests expect the ANSI code page 1252"; }
};

TEST_F(CodePage1252, ConvertsBothWaysAndLeavesOutWhatItCantHold) {
    EXPECT_EQ(platform::systemCodePageName(), "windows-1252");
    EXPECT_EQ(platform::wideToSystem(u"M\u00fcller \u20ac5"), "M\xfcller \x80" "5");
    EXPECT_EQ(platform::systemToWide("M\xfcller \x80" "5"), u"M\u00fcller \u20ac5");
    // Greek omega and a character beyond the 16-bit plane have no byte in
    // 1252: left out, not guessed as "W" or "?".
    EXPECT_EQ(platform::wideToSystem(u"A\u03a9B\U0001F600C"), "ABC");
    EXPECT_EQ(platform::wideToSystem(u""), "");
}

TEST_F(CodePage1252, StrictConversionsFailWhereTheLooseOnesLeaveOut) {
    std::string narrow;
    std::u16string wideText;
    EXPECT_TRUE(platform::encodeNarrow(u"\u00e9t\u00e9", NarrowEncoding::systemCodePage, narrow));
    EXPECT_EQ(narrow, "\xe9t\xe9");
    EXPECT_FALSE(platform::encodeNarrow(u"a\u03a9", NarrowEncoding::systemCodePage, narrow));
    EXPECT_TRUE(platform::encodeNarrow(u"a\u03a9", NarrowEncoding::utf8, narrow));
    EXPECT_EQ(narrow, "a\xce\xa9");
    EXPECT_FALSE(platform::encodeNarrow(std::u16string(1, char16_t(0xD800)), NarrowEncoding::utf8, narrow));
    EXPECT_TRUE(platform::decodeNarrow("\xe6\xa8\xa1", NarrowEncoding::utf8, wideText));
    EXPECT_EQ(wideText, u"\u6a21");
    EXPECT_FALSE(platform::decodeNarrow("a\xe6\xa8", NarrowEncoding::utf8, wideText));
    EXPECT_EQ(platform::leadingCharacterBytes("\xe6\xa8\xa1x", NarrowEncoding::utf8), 3u);
    EXPECT_EQ(platform::leadingCharacterBytes("\xa8x", NarrowEncoding::utf8), 0u);
    EXPECT_EQ(platform::leadingCharacterBytes("\xe9x", NarrowEncoding::systemCodePage), 1u);
}

TEST(CaseMapping, FullMappingsAsUnicodeGivesThem) {
    struct Case {
        std::u16string text, upper, lower;
    };
    const Case cases[] = {
        {u"Stra\u00dfe", u"STRASSE", u"stra\u00dfe"},
        {u"\ufb01le \u0149", u"FILE \u02bcN", u"\ufb01le \u0149"},
        {u"\u0130stanbul", u"\u0130STANBUL", u"i\u0307stanbul"},
        {u"\u00e9\u0101\u044f\U00010428", u"\u00c9\u0100\u042f\U00010400", u"\u00e9\u0101\u044f\U00010428"},
        {u"", u"", u""},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(platform::upperCase(test.text), test.upper);
        EXPECT_EQ(platform::lowerCase(test.text), test.lower);
    }
}

// A folder of its own below the temporary folder, with a non-ASCII name.
class WideFolder : public ::testing::Test {
protected:
    void SetUp() override {
        folder = fs::temp_directory_path() / fs::path(u"vantrel \u00c4\u03a9\u6a21");
        fs::remove_all(folder);
        fs::create_directory(folder);
    }
    void TearDown() override { fs::remove_all(folder); }
    fs::path folder;
};

TEST_F(WideFolder, FilesOpenByWidePath) {
    const fs::path path = folder / fs::path(u"\u6a21\u578b \u00df.vnz");
    FILE* file = platform::openFile(path.u16string(), u"wb");
    ASSERT_NE(file, nullptr);
    std::fputs("x\n", file);
    std::fclose(file);
    EXPECT_EQ(fs::file_size(path), 2u) << "binary mode: no carriage return added";
    file = platform::openFile(path.u16string(), u"rb");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_EQ(platform::openFile((folder / "missing" / "a.txt").u16string(), u"rb"), nullptr);
    // By narrow path in the code page, for a path that fits it.
    const fs::path latin = fs::temp_directory_path() / fs::path(u"vantrel \u00e4\u00df");
    fs::create_directory(latin);
    EXPECT_TRUE(platform::directoryExists(platform::wideToSystem(latin.u16string())));
    fs::remove(latin);
    EXPECT_FALSE(platform::directoryExists(platform::wideToSystem(latin.u16string())));
}

TEST_F(WideFolder, DynamicLibraryLoadsByWidePathAndFindsItsEntries) {
    const fs::path copy = folder / fs::path(u"plug-in \u00e9.dll");
    fs::copy_file(TEST_PLUGIN_LIBRARY, copy);
    std::string error;
    auto library = platform::DynamicLibrary::open(copy.u16string(), error);
    ASSERT_TRUE(library.isOpen()) << error;
    EXPECT_NE(library.symbol("user_initialize_plus"), nullptr);
    EXPECT_EQ(library.symbol("no_such_entry"), nullptr);
    auto missing = platform::DynamicLibrary::open((folder / "none.dll").u16string(), error);
    EXPECT_FALSE(missing.isOpen());
    EXPECT_FALSE(error.empty());
}

// The renderer's registry values of the live road, written with the real
// registry calls into both hives, and removed again.
class LiveRegistry : public ::testing::Test {
protected:
    void SetUp() override {
        RegDeleteTreeW(HKEY_CURRENT_USER, L"SOFTWARE\\Norvex");
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Norvex");
    }
    void TearDown() override { SetUp(); }

    static void setText(HKEY hive, const std::u16string& key, const std::u16string& name, const std::u16string& value) {
        HKEY handle = create(hive, key);
        RegSetValueExW(handle, wide(name), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(char16_t)));
        RegCloseKey(handle);
    }
    static void setNumber(HKEY hive, const std::u16string& key, const std::u16string& name, DWORD value) {
        HKEY handle = create(hive, key);
        RegSetValueExW(handle, wide(name), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
        RegCloseKey(handle);
    }

private:
    static HKEY create(HKEY hive, const std::u16string& key) {
        HKEY handle = nullptr;
        EXPECT_EQ(RegCreateKeyExW(hive, wide(key), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &handle, nullptr),
                  ERROR_SUCCESS);
        return handle;
    }
};

TEST_F(LiveRegistry, PortsAsNumbersOrAsTextAndWhatIsMissing) {
    std::int32_t first = 0, last = 0;
    EXPECT_EQ(nvx::installation::live_link_ports(first, last), -3) << "no version key";
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex", u"VantrelVersion", u"Vantrel 6");
    setText(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex\\Vantrel 6", u"Other", u"x");
    EXPECT_EQ(nvx::installation::live_link_ports(first, last), -2);
    setNumber(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex\\Vantrel 6", u"LiveLinkPort", 4101);
    EXPECT_EQ(nvx::installation::live_link_ports(first, last), -1);
    EXPECT_EQ(first, 4101);
    setNumber(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex\\Vantrel 6", u"LiveLinkMaxPort", 4109);
    EXPECT_EQ(nvx::installation::live_link_ports(first, last), 0);
    EXPECT_EQ(last, 4109);
    // The same ports as decimal text.
    RegDeleteTreeW(HKEY_CURRENT_USER, L"SOFTWARE\\Norvex");
    setText(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex\\Vantrel 6", u"LiveLinkPort", u"5200");
    setText(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex\\Vantrel 6", u"LiveLinkMaxPort", u"5210 ports");
    EXPECT_EQ(nvx::installation::live_link_ports(first, last), 0);
    EXPECT_EQ(first, 5200);
    EXPECT_EQ(last, 5210);
}

TEST_F(LiveRegistry, FoldersAndTheExecutableOfAVersionInRange) {
    const std::u16string version = u"SOFTWARE\\Norvex\\Vantrel 6";
    setText(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex", u"VantrelActivePath", u"C:\\Program Files\\Vantr\u00e9l");
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex", u"VantrelVersion", u"Vantrel 6");
    setText(HKEY_LOCAL_MACHINE, version, u"BinFolder", u"C:\\Vantrel\\bin");
    setText(HKEY_LOCAL_MACHINE, version, u"CurrentVersion", u"6");
    setText(HKEY_LOCAL_MACHINE, version, u"BinName", u"C:\\Vantrel\\bin\\vantrel.exe");
    // A number where text belongs counts as missing.
    setNumber(HKEY_LOCAL_MACHINE, version, u"ResourceFolder", 7);
    EXPECT_EQ(nvx::installation::active_path(), u"C:\\Program Files\\Vantr\u00e9l");
    EXPECT_EQ(nvx::installation::bin_folder(), u"C:\\Vantrel\\bin");
    EXPECT_EQ(nvx::installation::executable_path(6, 6), u"C:\\Vantrel\\bin\\vantrel.exe");
    EXPECT_EQ(nvx::installation::executable_path(7, 9), u"");
    EXPECT_EQ(nvx::installation::resource_folder(platform::Hive::LocalMachine), std::nullopt);
    // A text longer than its buffer (520 bytes with the zero) is missing too.
    setText(HKEY_LOCAL_MACHINE, version, u"BinFolder", std::u16string(260, u'f'));
    EXPECT_EQ(nvx::installation::bin_folder(), u"");
    setText(HKEY_LOCAL_MACHINE, version, u"BinFolder", std::u16string(259, u'f'));
    EXPECT_EQ(nvx::installation::bin_folder(), std::u16string(259, u'f'));
}

TEST_F(LiveRegistry, LaunchStartsTheRegisteredExecutable) {
    const fs::path probe = fs::path(LAUNCH_PROBE_PROGRAM);
    const fs::path mark = probe.parent_path() / "launched.txt";
    fs::remove(mark);
    EXPECT_FALSE(nvx::installation::launch_application(6, 6)) << "nothing registered";
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex", u"VantrelVersion", u"Vantrel 6");
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex\\Vantrel 6", u"CurrentVersion", u"6");
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex\\Vantrel 6", u"BinName", fs::absolute(probe).u16string());
    ASSERT_TRUE(nvx::installation::launch_application(6, 6));
    for (int wait = 0; wait < 200 && !fs::exists(mark); ++wait) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_TRUE(fs::exists(mark)) << "the probe didn't run";
    fs::remove(mark);
}

TEST_F(LiveRegistry, LogLiesInTheTemporaryFolderUnlessAHiveNamesOne) {
    wchar_t buffer[MAX_PATH];
    DWORD length = GetTempPathW(MAX_PATH, buffer);
    const std::u16string temporary(reinterpret_cast<const char16_t*>(buffer), length);
    ASSERT_EQ(platform::temporaryFolder(), temporary);
    EXPECT_EQ(temporary.back(), u'\\');
    EXPECT_EQ(nvx::scene_log_path(), temporary + u"\\sceneapi.log");
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex", u"VantrelVersion", u"Vantrel 6");
    setText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Norvex\\Vantrel 6", u"ResourceFolder", u"C:\\machine");
    EXPECT_EQ(nvx::scene_log_path(), u"C:\\machine\\sceneapi.log");
    setText(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex", u"VantrelVersion", u"Vantrel 6");
    setText(HKEY_CURRENT_USER, u"SOFTWARE\\Norvex\\Vantrel 6", u"ResourceFolder", u"D:\\user");
    EXPECT_EQ(nvx::scene_log_path(), u"D:\\user\\sceneapi.log");
}

TEST(Clock, TimeOfDayIsTheLocalTime) {
    std::string text;
    ASSERT_TRUE(platform::timeOfDay(text));
    ASSERT_TRUE(std::regex_match(text, std::regex("([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]"))) << text;
    SYSTEMTIME now;
    GetLocalTime(&now);
    // The same hour, unless the hour turned in between.
    int hour = std::stoi(text.substr(0, 2));
    EXPECT_TRUE(hour == now.wHour || (hour + 1) % 24 == now.wHour) << text;
    // The tick counts milliseconds; its steps may be as coarse as the
    // system timer's, some 16 ms.
    std::uint32_t before = platform::tickMilliseconds();
    Sleep(100);
    const std::uint32_t passed = platform::tickMilliseconds() - before;
    EXPECT_GE(passed, 60u);
    EXPECT_LT(passed, 2000u);
}

}  // namespace
