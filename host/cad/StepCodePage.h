#pragma once
// The code page of the names in a STEP file. Files from CAD installations in
// many languages write names as raw bytes of a legacy code page (Windows-1251
// Cyrillic, Shift-JIS, ...); the kernel's STEP reader decodes them when it is
// told which one. The user may name it; otherwise it is detected: names that
// are valid UTF-8 stay UTF-8, and other 8-bit names go to ICU's charset
// detector.
#include <filesystem>
#include <optional>
#include <string>

namespace host::cad {

struct StepCodePage {
    std::string kernelName;   // the kernel's spelling: "UTF8", "CP1251", "iso8859-5", "SJIS", ...
    std::string displayName;  // the user's: "utf-8", "cp1251", "iso8859-5", "shift-jis", ...
    bool detected = false;    // chosen from the file's bytes, not named by the user
    bool eightBitNames = false;  // the file's strings hold bytes above 127
};

// The code page a user names ("cp1251", "windows-1251", "ISO-8859-5",
// "shift_jis", "gb2312", "utf-8", ...; case, '-' and '_' don't matter);
// nothing for a name the kernel's reader doesn't know.
std::optional<StepCodePage> stepCodePageNamed(const std::string& name);

// The names the kernel's reader knows, for messages: "cp1250, ..., utf-8".
std::string knownStepCodePages();

// The code page of the strings of `path`: UTF-8 when they are valid UTF-8
// (ASCII included), else ICU's best guess among the code pages the kernel
// knows, else cp1252. Throws std::runtime_error if the file can't be read.
StepCodePage detectStepCodePage(const std::filesystem::path& path);

}  // namespace host::cad
