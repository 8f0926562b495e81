#include "host/testing/TestSession.h"

namespace host::fixtures {

std::filesystem::path pluginLibrary() { return VANTREL_PLUGIN_LIBRARY; }

std::unique_ptr<Host> startPlugin(Session& session, const std::filesystem::path& library) {
    return std::make_unique<Host>(session, library);
}

}  // namespace host::fixtures
