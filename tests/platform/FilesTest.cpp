#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "platform/DynamicLibrary.h"
#include "platform/FileSystem.h"
#include "platform/Files.h"

namespace {

TEST(Files, OpensByWidePathAndReportsFailure) {
    auto dir = std::filesystem::temp_directory_path() / "vantrel_platform_test";
    std::filesystem::create_directories(dir);
    std::u16string path = (dir / "a.txt").u16string();
    FILE* file = platform::openFile(path, u"wb+");
    ASSERT_NE(file, nullptr);
    std::fputs("x", file);
    std::fclose(file);
    EXPECT_TRUE(std::filesystem::exists(dir / "a.txt"));
    EXPECT_EQ(platform::openFile((dir / "missing" / "b.txt").u16string(), u"rb"), nullptr);
    EXPECT_TRUE(platform::directoryExists(dir.string()));
    EXPECT_FALSE(platform::directoryExists((dir / "a.txt").string()));
    std::filesystem::remove_all(dir);
}

TEST(DynamicLibrary, MissingLibraryGivesReason) {
    std::string error;
    auto library = platform::DynamicLibrary::open(u"/nonexistent/libnothing.so", error);
    EXPECT_FALSE(library.isOpen());
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(library.symbol("anything"), nullptr);
}

}  // namespace
