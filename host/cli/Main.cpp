// vantrel-host: loads the plug-in into the headless host and runs one of the
// subcommands of the table (Subcommands.h) on it.
#include <clocale>
#include <iostream>
#include <stdexcept>

#include "host/cli/CommandLine.h"
#include "host/cli/Usage.h"

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    try {
        const host::cli::ParsedCommandLine parsed = host::cli::parseCommandLine(argc, argv);
        switch (parsed.request) {
            case host::cli::ParsedCommandLine::Request::Help:
                std::cout << host::cli::usageText();
                return 0;
            case host::cli::ParsedCommandLine::Request::Version:
                std::cout << "vantrel-host " VANTREL_HOST_VERSION "\n";
                return 0;
            case host::cli::ParsedCommandLine::Request::Run:
                break;
        }
        return parsed.subcommand->run(parsed.invocation);
    } catch (const host::cli::UsageError& error) {
        std::cerr << "vantrel-host: " << error.message << "\nTry \"vantrel-host --help\".\n";
        return 2;
    } catch (const std::runtime_error& error) {
        // The host's, the model loader's and the export's errors.
        std::cerr << "vantrel-host: error: " << error.what() << "\n";
        return 1;
    }
}
