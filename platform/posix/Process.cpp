// POSIX implementation: this file may contain only POSIX code.
#include "platform/Process.h"

#include <fcntl.h>
#include <spawn.h>
#include <time.h>

#include <cerrno>

#include "platform/CodePage.h"

extern char** environ;

namespace platform {

namespace {

// The child's standard streams read and write nothing, and every other
// descriptor is closed: the child inherits no handle of this process.
bool withoutInheritedHandles(posix_spawn_file_actions_t& actions) {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        int flags = descriptor == 0 ? O_RDONLY : O_WRONLY;
        if (posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", flags, 0) != 0) return false;
    }
    return posix_spawn_file_actions_addclosefrom_np(&actions, 3) == 0;
}

}  // namespace

bool startProcess(const std::u16string& executable) {
    std::string path = wideToSystem(executable);
    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0) return false;
    // Its own session, so that it outlives a terminal that ends this process.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    bool started = false;
    if (withoutInheritedHandles(actions)) {
        char* arguments[] = {path.data(), nullptr};
        pid_t child = 0;
        started = posix_spawn(&child, path.c_str(), &actions, &attributes, arguments, environ) == 0;
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return started;
}

void sleepMilliseconds(int milliseconds) {
    if (milliseconds <= 0) return;
    timespec remaining{milliseconds / 1000, static_cast<long>(milliseconds % 1000) * 1000000L};
    while (nanosleep(&remaining, &remaining) != 0 && errno == EINTR) {
    }
}

}  // namespace platform
