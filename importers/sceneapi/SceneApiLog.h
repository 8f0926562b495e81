#pragma once
// The diagnostic log of the live road: "sceneapi.log" in the renderer's
// resource folder, else in the temporary folder. Each message is one object
// whose destructor writes one flushed line:
//
//   RepeatLinkFactory.cpp:42 - 14:03:27.015 DEBUG4:  the message
//
// The milliseconds count from the process's first message, not from the
// clock's second. The log never stops anything: while its file can't be
// opened, messages are dropped and each one tries again.
#include <cstdio>
#include <sstream>
#include <string>

enum TLogLevel { logERROR, logWARNING, logINFO, logDEBUG, logDEBUG1, logDEBUG2, logDEBUG3, logDEBUG4, logNONE };

template <typename Output>
class Log {
public:
    Log() = default;
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;
    virtual ~Log();

    // Writes the head of the line and answers the stream for the message.
    std::ostringstream& Get(int level, const char* file, int line);

    // Messages above this level are not produced; 7, and nothing changes it.
    static int ReportingLevel() { return logDEBUG4; }
    static std::string ToString(int level);
    static std::string NowTime();

protected:
    std::ostringstream os;
};

// The process-wide file of the log.
class Output2FILE {
public:
    // The open file, opening it at need; null while it can't be opened.
    static FILE* Stream();
    static void Output(const std::string& text);
    // Closes the file and forgets the first message's tick, so that the next
    // message starts as the process's first.
    static void Reset();
};

class FILELog : public Log<Output2FILE> {};

// The check comes first: nothing is formatted for a message that isn't
// produced.
#define FILE_LOG(level)                                                            \
    if ((level) > FILELog::ReportingLevel() || !Output2FILE::Stream()) {           \
    } else                                                                         \
        FILELog().Get(level, __FILE__, __LINE__)

namespace nvx {

// Where the log goes: the "ResourceFolder" of the current user, else of the
// machine, else the temporary folder; then "sceneapi.log".
std::u16string scene_log_path();

}  // namespace nvx
