// POSIX implementation: this file may contain only POSIX code.
#include "platform/Environment.h"

#include <cstdlib>

namespace platform {

void setEnvironmentVariable(const std::string& name, const std::string& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
}

void removeEnvironmentVariable(const std::string& name) { ::unsetenv(name.c_str()); }

}  // namespace platform
