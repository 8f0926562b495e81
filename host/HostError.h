#pragma once
// A failure of the headless host that its user must hear about: a plug-in
// that can't be loaded or started, an unknown command, a malformed resource.
#include <stdexcept>

namespace host {

class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace host
