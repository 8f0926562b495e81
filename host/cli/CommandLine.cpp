#include "host/cli/CommandLine.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/Options.h"

namespace host::cli {
namespace {

struct GivenOption {
    const Option* option;
    std::string value;
};

// "--name=value" or "--name value"; a flag takes no value.
GivenOption readOption(std::string_view argument, int argc, const char* const* argv, int& index) {
    const size_t equals = argument.starts_with("--") ? argument.find('=') : std::string_view::npos;
    const std::string_view name = argument.substr(0, equals);
    const Option* option = findOption(name);
    if (!option) throw UsageError{"unknown option " + std::string(name)};
    if (option->value.empty()) {
        if (equals != std::string_view::npos) throw UsageError{std::string(name) + " takes no value"};
        return {option, ""};
    }
    if (equals != std::string_view::npos) return {option, std::string(argument.substr(equals + 1))};
    if (index + 1 >= argc) throw UsageError{std::string(name) + " needs a value"};
    return {option, argv[++index]};
}

}  // namespace

ParsedCommandLine parseCommandLine(int argc, const char* const* argv) {
    ParsedCommandLine parsed;
    if (argc <= 1) {
        parsed.request = ParsedCommandLine::Request::Help;
        return parsed;
    }
    std::vector<GivenOption> given;
    for (int index = 1; index < argc; ++index) {
        const std::string_view argument = argv[index];
        if (argument == "--help" || argument == "-h") {
            parsed.request = ParsedCommandLine::Request::Help;
        } else if (argument == "--version") {
            parsed.request = ParsedCommandLine::Request::Version;
        } else if (argument.starts_with("-") && argument != "-") {
            given.push_back(readOption(argument, argc, argv, index));
        } else if (!parsed.subcommand) {
            parsed.subcommand = findSubcommand(argument);
            if (!parsed.subcommand) throw UsageError{"unknown action \"" + std::string(argument) + "\""};
        } else if (!parsed.subcommand->operand.empty() && parsed.invocation.operands.empty()) {
            parsed.invocation.operands.emplace_back(argument);
        } else {
            throw UsageError{"unexpected argument \"" + std::string(argument) + "\""};
        }
    }
    if (parsed.request != ParsedCommandLine::Request::Run) return parsed;
    if (!parsed.subcommand) throw UsageError{"no action given"};
    for (const GivenOption& option : given) {
        if (!takesOption(*parsed.subcommand, option.option->name)) {
            throw UsageError{std::string(parsed.subcommand->name) + " takes no option " +
                             std::string(option.option->name)};
        }
        option.option->apply(parsed.invocation, option.value);
    }
    if (!parsed.subcommand->operand.empty() && parsed.invocation.operands.empty()) {
        throw UsageError{std::string(parsed.subcommand->name) + " needs " + std::string(parsed.subcommand->operand)};
    }
    return parsed;
}

}  // namespace host::cli
