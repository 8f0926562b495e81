#pragma once
// A folder of its own for one test: a copy of a test plug-in library and the
// text files beside it, removed when the test ends. A fresh copy per test
// gives each test a freshly loaded plug-in.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "host/HostError.h"
#include "platform/DynamicLibrary.h"
#include "tests/host/plugins/TestPluginRecord.h"

class PluginFolder {
public:
    // Copies the library at `library` (by default the minimal test plug-in)
    // into the folder under the file name `fileName`.
    explicit PluginFolder(const std::filesystem::path& library = VANTREL_TEST_PLUGIN_MINIMAL,
                          std::string_view fileName = "libtest_plugin.so");
    ~PluginFolder();

    const std::filesystem::path& root() const { return root_; }
    const std::filesystem::path& plugin() const { return plugin_; }
    // Writes a file below the folder, making the folders it needs.
    void write(const std::filesystem::path& relative, std::string_view content) const;

private:
    std::filesystem::path root_;
    std::filesystem::path plugin_;
};

// The record of the minimal plug-in loaded from `library`; holding the
// reader keeps the library, and the record, alive.
class PluginRecordReader {
public:
    explicit PluginRecordReader(const std::filesystem::path& library);
    const TestPluginRecord& operator*() const { return *record_; }
    const TestPluginRecord* operator->() const { return record_; }

private:
    platform::DynamicLibrary library_;
    TestPluginRecord* record_ = nullptr;
};

// A message file of the test plug-in with its three messages.
inline constexpr std::string_view testMessageFile =
    "testCommand\nTest label\n#\n#\n"
    "testCommandHelp\nTest help text\n#\n#\n"
    "testMessage\nPressed\n#\n#\n";

// The message of the HostError that `action` throws; fails the test if none.
template <typename Action>
std::string hostErrorOf(Action action) {
    try {
        action();
    } catch (const host::HostError& error) {
        return error.what();
    }
    ADD_FAILURE() << "no HostError was thrown";
    return {};
}
