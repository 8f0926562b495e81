#include "tests/host/PluginFolder.h"

#include <gtest/gtest.h>

#include <fstream>

PluginFolder::PluginFolder(const std::filesystem::path& library, std::string_view fileName) {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    root_ = std::filesystem::path(testing::TempDir()) /
            ("vantrel_host_" + std::string(test->test_suite_name()) + "_" + test->name());
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_);
    plugin_ = root_ / fileName;
    std::filesystem::copy_file(library, plugin_);
}

PluginFolder::~PluginFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

void PluginFolder::write(const std::filesystem::path& relative, std::string_view content) const {
    std::filesystem::path path = root_ / relative;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

PluginRecordReader::PluginRecordReader(const std::filesystem::path& library) {
    std::string error;
    library_ = platform::DynamicLibrary::open(library.u16string(), error);
    auto getter = reinterpret_cast<TestPluginRecordGetter>(library_.symbol("test_plugin_record"));
    if (!getter) throw std::runtime_error("no test plug-in record in " + library.string() + ": " + error);
    record_ = getter();
}
