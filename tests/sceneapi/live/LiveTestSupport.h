#pragma once
// Test support of the live road: a clock that the test drives, registry hives
// written as files, a working folder of the test's own, and the stand-in
// libraries placed where the loader looks for them.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "importers/sceneapi/LiveClock.h"
#include "platform/DynamicLibrary.h"
#include "tests/toolkit/FileText.h"

namespace livetest {

namespace fs = std::filesystem;

// Sleeping only notes the wait and moves the tick on.
class FakeClock : public nvx::LiveClock {
public:
    void sleep(int milliseconds) override;
    std::uint32_t tick() override { return now; }
    bool time_of_day(std::string& text) override;

    std::vector<int> sleeps;
    std::uint32_t now = 0;
    std::string time = "12:34:56";
    bool time_known = true;
};

// For the length of a test: registry hives, the temporary folder and the
// working directory in a folder of its own, the fake clock in place, no log
// file open and no library loaded. Everything is put back at the end.
class LiveEnvironment {
public:
    LiveEnvironment();
    ~LiveEnvironment();
    LiveEnvironment(const LiveEnvironment&) = delete;
    LiveEnvironment& operator=(const LiveEnvironment&) = delete;

    // The body of a hive's file below the editor's header line.
    void writeUserRegistry(const std::string& body) const;
    void writeMachineRegistry(const std::string& body) const;

    // A copy of a built library at folder/name; a copy, not a link, so that
    // each placed file loads as a library of its own.
    fs::path placeLibrary(const char* built, const fs::path& folder, const std::string& name) const;

    const fs::path root;
    const fs::path work;       // the working directory
    const fs::path install;    // a folder for the renderer's files
    const fs::path temporary;  // $TMPDIR
    FakeClock clock;

private:
    struct Saved {
        std::string name;
        bool set;
        std::string value;
    };
    std::vector<Saved> saved_;
    fs::path previousDirectory_;
};

// The stand-in library's control functions, from one loaded copy.
class StubControl {
public:
    explicit StubControl(const fs::path& library);

    void reset() const { reset_(); }
    void scriptInstances(const std::vector<const char*>& texts) const {
        script_(texts.data(), static_cast<int>(texts.size()));
    }
    void setProcess(int processId, bool attachable, const char* scene) const {
        setProcess_(processId, attachable ? 1 : 0, scene);
    }
    void acceptPort(int port) const { accept_(port); }
    void answerNullQuery() const { nullQuery_(); }
    std::string calls() const { return calls_(); }
    std::string scene() const {
        std::size_t size = 0;
        const char* text = scene_(&size);
        return std::string(text, size);
    }
    int rootsMade() const { return made_(); }
    int rootsDeleted() const { return deleted_(); }

private:
    template <typename Function>
    Function find(const char* name) const;

    platform::DynamicLibrary library_;
    void (*reset_)();
    void (*script_)(const char* const*, int);
    void (*setProcess_)(int, int, const char*);
    void (*accept_)(int);
    void (*nullQuery_)();
    const char* (*calls_)();
    const char* (*scene_)(std::size_t*);
    int (*made_)();
    int (*deleted_)();
};

using testsupport::fileText;

}  // namespace livetest
