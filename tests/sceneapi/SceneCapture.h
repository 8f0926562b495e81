#pragma once
// Test support: a scene file writer on a temporary stream whose output is read
// back as bytes, the record of every text the tests produce, and builders for
// the binary blocks that tests expect.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "importers/sceneapi/nvxScene_api_file.h"
#include "tests/toolkit/FileText.h"

namespace scenetest {

// How a text that a test produced is meant to stand.
enum class TextShape {
    WholeFile,   // a scene file from its header on
    Statements,  // complete statements, every block that they open closed again
    OpenBlocks,  // taken while a block is deliberately left open
};

struct ProducedText {
    std::string test;  // "Suite.Name" of the test that produced it
    TextShape shape;
    std::string bytes;
};

class SceneCapture {
public:
    explicit SceneCapture(bool binary_arrays = true);
    ~SceneCapture();
    SceneCapture(const SceneCapture&) = delete;
    SceneCapture& operator=(const SceneCapture&) = delete;

    nvxScene_api_file& scene() { return *writer; }
    nvxScene_api_file* operator->() { return writer.get(); }

    // Everything written so far, kept as complete statements.
    std::string text();
    // The same, taken while a block is deliberately open: kept as OpenBlocks.
    std::string openText();

    // Keeps a whole scene file that a test wrote by other means.
    static void keepWholeFile(std::string bytes);
    // Every text kept so far, under the name of the test that was running.
    static const std::vector<ProducedText>& produced();

private:
    std::string readBack(TextShape shape);

    FILE* file;
    std::unique_ptr<nvxScene_api_file> writer;
};

// The bytes of a binary block: 01 02 03 and the kind letter, the scalar count
// and the scalars, little-endian.
std::string floatBlock(char kind, const std::vector<float>& values);
std::string intBlock(const std::vector<std::int32_t>& values);
std::string doubleBlock(const std::vector<double>& values);

using testsupport::fileText;
// The expected text kept as a file in the tests' golden folder.
std::string golden(const std::string& name);
// The same, with its binary blocks spelled as decodeGolden reads them.
std::string spelledGolden(const std::string& name);

// A path in the temporary folder, unique to this process; the file is
// removed when the object goes.
class ScratchFile {
public:
    explicit ScratchFile(const std::string& stem);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// A scene file written out by hand, with each binary block spelled as
// "<<k v v v>>": k the kind letter (c, f, i or r), then the values.
std::string decodeGolden(const std::string& spelled);

}  // namespace scenetest
