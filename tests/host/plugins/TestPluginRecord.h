#pragma once
// What the minimal test plug-in was given and what the host answered it. The
// plug-in exports test_plugin_record, through which the tests read it.
#include <string>

#include "toolkit/ProToolkit.h"

// A status no host call answers: the call was not made.
inline constexpr ProError notCalled = 1;

struct TestPluginRecord {
    // The handshake.
    int argc = -1;
    bool argvNull = false;
    std::string version;
    std::string build;
    std::string textRoot;
    int context = 0;
    int functionCount = 0;
    int language = 0;
    bool tableSorted = false;

    // Start-up calls.
    ProError unicodeStatus = notCalled;
    ProBoolean unicode = -1;
    ProError runModeStatus = notCalled;
    int runMode = -1;
    ProError displayVersionStatus = notCalled;
    std::string displayVersion;
    ProError versionFreeStatus = notCalled;
    ProError foreignFreeStatus = notCalled;  // a text the host never handed out
    ProError undoclearStatus = notCalled;

    // Registration of "Test Command".
    ProError actionAddStatus = notCalled;
    ProError duplicateAddStatus = notCalled;
    ProError designateStatus = notCalled;
    ProError iconStatus = notCalled;

    // Presses of "Test Command".
    int presses = 0;
    ProError pressIconStatus = notCalled;
    ProError messageStatus = notCalled;
    std::u16string message;

    int terminations = 0;
};

using TestPluginRecordGetter = TestPluginRecord* (*)();

// What the test command's action answers.
inline constexpr int testCommandAnswer = 42;
