#include "host/Session.h"

namespace host {

const std::u16string* Session::configOption(std::string_view name) const {
    auto found = configOptions_.find(name);
    return found == configOptions_.end() ? nullptr : &found->second;
}

}  // namespace host
