#include "tests/sceneapi/SceneCapture.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace scenetest {

namespace {

std::vector<ProducedText>& keptTexts() {
    static std::vector<ProducedText> texts;
    return texts;
}

std::string currentTestName() {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    return info ? std::string(info->test_suite_name()) + "." + info->name() : std::string("outside a test");
}

template <typename T>
void appendScalar(std::string& out, T value) {
    char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    out.append(bytes, sizeof(T));
}

std::string blockHead(char kind, std::size_t scalars) {
    std::string out{'\x01', '\x02', '\x03', kind};
    appendScalar(out, static_cast<std::uint32_t>(scalars));
    return out;
}

}  // namespace

SceneCapture::SceneCapture(bool binary_arrays) : file(std::tmpfile()) {
    if (!file) throw std::runtime_error("no temporary file");
    writer = std::make_unique<nvxScene_api_file>(file, binary_arrays);
}

SceneCapture::~SceneCapture() {
    writer.reset();
    std::fclose(file);
}

std::string SceneCapture::text() { return readBack(TextShape::Statements); }

std::string SceneCapture::openText() { return readBack(TextShape::OpenBlocks); }

std::string SceneCapture::readBack(TextShape shape) {
    std::fflush(file);
    const long end = std::ftell(file);
    std::string bytes(static_cast<std::size_t>(end), '\0');
    std::rewind(file);
    const std::size_t got = std::fread(bytes.data(), 1, bytes.size(), file);
    bytes.resize(got);
    std::fseek(file, 0, SEEK_END);
    keptTexts().push_back({currentTestName(), shape, bytes});
    return bytes;
}

void SceneCapture::keepWholeFile(std::string bytes) {
    keptTexts().push_back({currentTestName(), TextShape::WholeFile, std::move(bytes)});
}

const std::vector<ProducedText>& SceneCapture::produced() { return keptTexts(); }

std::string floatBlock(char kind, const std::vector<float>& values) {
    std::string out = blockHead(kind, values.size());
    for (float value : values) appendScalar(out, value);
    return out;
}

std::string intBlock(const std::vector<std::int32_t>& values) {
    std::string out = blockHead('i', values.size());
    for (std::int32_t value : values) appendScalar(out, value);
    return out;
}

std::string doubleBlock(const std::vector<double>& values) {
    std::string out = blockHead('r', values.size());
    for (double value : values) appendScalar(out, value);
    return out;
}

std::string golden(const std::string& name) {
    const std::string path = VANTREL_SCENEAPI_GOLDEN_DIR "/" + name;
    if (!std::filesystem::exists(path)) throw std::runtime_error("no expected text " + path);
    return testsupport::fileText(path);
}

std::string spelledGolden(const std::string& name) { return decodeGolden(golden(name)); }

ScratchFile::ScratchFile(const std::string& stem)
    : path_((std::filesystem::temp_directory_path() / (stem + "_" + std::to_string(::getpid()) + ".vnz")).string()) {}

ScratchFile::~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

std::string decodeGolden(const std::string& spelled) {
    std::string out;
    std::size_t at = 0;
    while (true) {
        const std::size_t open = spelled.find("<<", at);
        out.append(spelled, at, open == std::string::npos ? std::string::npos : open - at);
        if (open == std::string::npos) return out;
        const std::size_t close = spelled.find(">>", open);
        std::istringstream block(spelled.substr(open + 2, close - open - 2));
        char kind = 0;
        block >> kind;
        std::string values;
        std::size_t scalars = 0;
        for (double value; block >> value; ++scalars) {
            if (kind == 'i') appendScalar(values, static_cast<std::int32_t>(value));
            else if (kind == 'r') appendScalar(values, value);
            else appendScalar(values, static_cast<float>(value));
        }
        out += blockHead(kind, scalars) + values;
        at = close + 2;
    }
}

}  // namespace scenetest
