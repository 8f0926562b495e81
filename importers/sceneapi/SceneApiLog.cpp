#include "importers/sceneapi/SceneApiLog.h"

#include <cstdint>
#include <iostream>
#include <optional>

#include "importers/sceneapi/LiveClock.h"
#include "importers/sceneapi/VantrelInstallation.h"
#include "platform/Files.h"
#include "platform/FileSystem.h"

namespace {

// A log this large or larger starts anew at the first open of the process.
constexpr long FULL_LOG_SIZE = 20971520;

FILE* log_stream = nullptr;
std::optional<std::uint32_t> first_tick;

// The file is closed when the library that holds the log is unloaded, or the
// process ends.
struct CloseAtUnload {
    ~CloseAtUnload() { Output2FILE::Reset(); }
} close_at_unload;

const char* LEVEL_NAMES[] = {"ERROR", "WARNING", "INFO", "DEBUG", "DEBUG1", "DEBUG2", "DEBUG3", "DEBUG4", "NONE"};

// What follows the last slash or backslash; the first character is not
// searched, so that a lone leading separator stays.
const char* base_name(const char* file) {
    std::string_view path(file);
    if (path.size() < 2) return file;
    std::size_t separator = path.find_last_of("/\\");
    return separator == std::string_view::npos || separator == 0 ? file : file + separator + 1;
}

long file_size(const std::u16string& path) {
    FILE* file = platform::openFile(path, u"rb");
    if (!file) return 0;
    std::fseek(file, 0, SEEK_END);
    long size = std::ftell(file);
    std::fclose(file);
    return size;
}

FILE* open_log() {
    std::u16string path = nvx::scene_log_path();
    FILE* stream = platform::openFile(path, file_size(path) < FULL_LOG_SIZE ? u"a" : u"w");
    if (!stream) {
        std::cerr << "could not open log file:" << std::endl;
        std::perror("opening log");
    }
    return stream;
}

}  // namespace

template <typename Output>
Log<Output>::~Log() {
    os << '\n';
    Output::Output(os.str());
}

template <typename Output>
std::ostringstream& Log<Output>::Get(int level, const char* file, int line) {
    os << base_name(file) << ':' << line << ' ' << "- " << NowTime() << ' ' << ToString(level) << ": " << ' ';
    return os;
}

template <typename Output>
std::string Log<Output>::ToString(int level) {
    return level >= logERROR && level <= logNONE ? LEVEL_NAMES[level] : "";
}

template <typename Output>
std::string Log<Output>::NowTime() {
    nvx::LiveClock& clock = nvx::live_clock();
    std::string time;
    if (!clock.time_of_day(time)) time = "Error in NowTime()";
    std::uint32_t tick = clock.tick();
    if (!first_tick) first_tick = tick;
    char text[256];
    std::snprintf(text, sizeof text, "%s.%03ld", time.c_str(), static_cast<long>((tick - *first_tick) % 1000));
    return text;
}

template class Log<Output2FILE>;

FILE* Output2FILE::Stream() {
    if (!log_stream) log_stream = open_log();
    return log_stream;
}

void Output2FILE::Output(const std::string& text) {
    FILE* stream = Stream();
    if (!stream) return;
    std::fprintf(stream, "%s", text.c_str());
    std::fflush(stream);
}

void Output2FILE::Reset() {
    if (log_stream) std::fclose(log_stream);
    log_stream = nullptr;
    first_tick.reset();
}

namespace nvx {

std::u16string scene_log_path() {
    std::u16string folder = platform::temporaryFolder();
    if (auto machine = installation::resource_folder(platform::Hive::LocalMachine)) folder = *machine;
    if (auto user = installation::resource_folder(platform::Hive::CurrentUser)) folder = *user;
    return folder + platform::pathSeparator + u"sceneapi.log";
}

}  // namespace nvx
