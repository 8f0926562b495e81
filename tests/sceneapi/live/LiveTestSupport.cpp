#include "tests/sceneapi/live/LiveTestSupport.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "importers/sceneapi/SceneApiLog.h"
#include "importers/sceneapi/nvxLiveLoader.h"
#include "platform/Environment.h"

namespace livetest {

namespace {

fs::path uniqueFolder() {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = test ? std::string(test->test_suite_name()) + "." + test->name() : "live";
    for (char& c : name)
        if (c == '/') c = '_';
    fs::path folder = fs::temp_directory_path() / ("vantrel-live-" + std::to_string(::getpid())) / name;
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

void writeHive(const fs::path& file, const std::string& body) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << "Windows Registry Editor Version 5.00\n\n" << body;
}

}  // namespace

void FakeClock::sleep(int milliseconds) {
    sleeps.push_back(milliseconds);
    now += static_cast<std::uint32_t>(milliseconds);
}

bool FakeClock::time_of_day(std::string& text) {
    if (time_known) text = time;
    return time_known;
}

LiveEnvironment::LiveEnvironment()
    : root(uniqueFolder()), work(root / "work"), install(root / "install"), temporary(root / "tmp") {
    for (const fs::path& folder : {work, install, temporary}) fs::create_directories(folder);
    const std::pair<const char*, std::string> variables[] = {
        {"XDG_CONFIG_HOME", (root / "user").string()},
        {"XDG_CONFIG_DIRS", (root / "empty").string() + ":" + (root / "machine").string()},
        {"TMPDIR", temporary.string()},
    };
    for (const auto& [name, value] : variables) {
        const char* old = std::getenv(name);
        saved_.push_back({name, old != nullptr, old ? old : ""});
        platform::setEnvironmentVariable(name, value);
    }
    previousDirectory_ = fs::current_path();
    fs::current_path(work);
    nvx_release_live();
    Output2FILE::Reset();
    nvx::set_live_clock(&clock);
}

LiveEnvironment::~LiveEnvironment() {
    nvx_release_live();
    Output2FILE::Reset();
    nvx::set_live_clock(nullptr);
    fs::current_path(previousDirectory_);
    for (const Saved& variable : saved_) {
        if (variable.set)
            platform::setEnvironmentVariable(variable.name, variable.value);
        else
            platform::removeEnvironmentVariable(variable.name);
    }
    std::error_code ignored;
    fs::remove_all(root, ignored);
    fs::remove(root.parent_path(), ignored);  // the process's folder, once empty
}

void LiveEnvironment::writeUserRegistry(const std::string& body) const {
    writeHive(root / "user" / "norvex" / "registry.reg", body);
}

void LiveEnvironment::writeMachineRegistry(const std::string& body) const {
    writeHive(root / "machine" / "norvex" / "registry.reg", body);
}

fs::path LiveEnvironment::placeLibrary(const char* built, const fs::path& folder, const std::string& name) const {
    fs::create_directories(folder);
    fs::path placed = folder / name;
    fs::copy_file(built, placed, fs::copy_options::overwrite_existing);
    return placed;
}

template <typename Function>
Function StubControl::find(const char* name) const {
    auto function = reinterpret_cast<Function>(library_.symbol(name));
    if (!function) throw std::runtime_error(std::string("the stand-in library lacks ") + name);
    return function;
}

StubControl::StubControl(const fs::path& library) {
    std::string error;
    library_ = platform::DynamicLibrary::open(library.u16string(), error);
    if (!library_.isOpen()) throw std::runtime_error("can't load " + library.string() + ": " + error);
    reset_ = find<void (*)()>("live_stub_reset");
    script_ = find<void (*)(const char* const*, int)>("live_stub_script_instances");
    setProcess_ = find<void (*)(int, int, const char*)>("live_stub_set_process");
    accept_ = find<void (*)(int)>("live_stub_accept_port");
    nullQuery_ = find<void (*)()>("live_stub_answer_null_query");
    calls_ = find<const char* (*)()>("live_stub_calls");
    scene_ = find<const char* (*)(std::size_t*)>("live_stub_scene");
    made_ = find<int (*)()>("live_stub_roots_made");
    deleted_ = find<int (*)()>("live_stub_roots_deleted");
}

}  // namespace livetest
