#pragma once
// The usage text of vantrel-host, built from the tables of subcommands and options.
#include <string>

namespace host::cli {

std::string usageText();

}  // namespace host::cli
