#pragma once
// Setting the process's environment variables, as getenv then reads them.
#include <string>

namespace platform {

void setEnvironmentVariable(const std::string& name, const std::string& value);
void removeEnvironmentVariable(const std::string& name);

}  // namespace platform
