// Windows implementation: this file may contain only Windows code.
// The C run time's copy of the environment, which getenv reads, and the
// process's own, which child processes inherit, change together.
#include "platform/Environment.h"

#include <cstdlib>

namespace platform {

void setEnvironmentVariable(const std::string& name, const std::string& value) {
    // An empty value would remove the variable: Windows keeps no empty ones.
    _putenv_s(name.c_str(), value.c_str());
}

void removeEnvironmentVariable(const std::string& name) { _putenv_s(name.c_str(), ""); }

}  // namespace platform
