// Started by the launch test without arguments: leaves "launched.txt" beside
// itself, so that the test sees it ran.
#include <cstdio>

#include "platform/FileSystem.h"
#include "platform/Files.h"

int main() {
    FILE* mark = platform::openFile(platform::executableDirectory() + u"\\launched.txt", u"w");
    if (!mark) return 1;
    std::fputs("launched\n", mark);
    return std::fclose(mark) == 0 ? 0 : 1;
}
