// After the tests of this program have run, every text that they produced is
// read back with the project's scene reader: what the writer makes must be
// what the reader takes. Whole files must also pass the reader's checks;
// texts taken while a block was deliberately left open are passed over.
// Under CTest each test runs in a process of its own, so a failure here
// belongs to the one test that ran.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/sceneapi/SceneCapture.h"

namespace {

using scenetest::ProducedText;
using scenetest::TextShape;

// The first bytes of a text, with the unprintable ones escaped, to say which
// of several texts of one test it was.
std::string opening(const std::string& bytes) {
    std::string shown;
    for (char c : bytes.substr(0, 60)) {
        if (c >= 32 && c < 127) {
            shown += c;
        } else {
            const char* digits = "0123456789abcdef";
            const auto byte = static_cast<unsigned char>(c);
            shown += std::string("\\x") + digits[byte >> 4] + digits[byte & 15];
        }
    }
    return shown;
}

void readBack(const ProducedText& produced) {
    scenereader::Document document;
    try {
        document = scenereader::parseScene(produced.bytes);
    } catch (const scenereader::ParseError& error) {
        ADD_FAILURE() << "a text of " << produced.test << " does not read back: " << error.what() << "\n  it begins: \""
                      << opening(produced.bytes) << "\"";
        return;
    }
    if (produced.shape != TextShape::WholeFile) return;
    for (const std::string& problem : scenereader::checkScene(document)) {
        ADD_FAILURE() << "the scene file of " << produced.test << " fails a check: " << problem;
    }
    if (document.comments.empty() || document.comments.front() != "//---norvex:dal:7---") {
        ADD_FAILURE() << "the scene file of " << produced.test << " does not begin with the format's header line";
    }
}

class ProducedScenesReadBack : public testing::Environment {
public:
    void TearDown() override {
        for (const ProducedText& produced : scenetest::SceneCapture::produced()) {
            if (produced.shape != TextShape::OpenBlocks) readBack(produced);
        }
    }
};

[[maybe_unused]] testing::Environment* const registered = testing::AddGlobalTestEnvironment(new ProducedScenesReadBack);

}  // namespace
