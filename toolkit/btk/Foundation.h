#pragma once
// What the toolkit's start-up tells the foundation about the process: the
// language in use and where its messages are, and the host's run mode.
#include <string>

namespace btk {

// The code of the language whose texts stand in for a missing one.
inline constexpr int fallbackLanguageCode = 6;

// The name of a language in the foundation's table, which is also the name of
// its text directory; empty for a code that the table doesn't know.
const char* languageName(int code);

void setLanguage(int code);
int language();

// The directory in which the foundation's message look-up finds its files.
void setMessageDirectory(std::u16string directory);
const std::u16string& messageDirectory();

// The host's run mode, and whether it is other than 0.
void setRunMode(int mode, bool nonZero);
int runMode();
bool runModeNonZero();

}  // namespace btk
