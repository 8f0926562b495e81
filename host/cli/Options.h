#pragma once
// The options of vantrel-host: their names, the value they take, their help
// text and how each one changes the invocation.
#include <span>
#include <string>
#include <string_view>

#include "host/cli/Invocation.h"

namespace host::cli {

struct Option {
    std::string_view name;       // "--quality"
    std::string_view shortName;  // "-o", or empty
    std::string_view value;      // what the value is called in the usage; empty: the option takes none
    std::string_view help;       // lines separated by '\n'
    // Throws UsageError for a value it can't take.
    void (*apply)(Invocation& invocation, const std::string& value);
};

std::span<const Option> options();

// The option called `name` (long or short), or null.
const Option* findOption(std::string_view name);

}  // namespace host::cli
