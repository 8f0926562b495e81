#pragma once
// Test support: a scene file writer on a temporary stream whose output is read
// back as bytes, and builders for the binary blocks that tests expect.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "importers/sceneapi/nvxScene_api_file.h"

namespace scenetest {

class SceneCapture {
public:
    explicit SceneCapture(bool binary_arrays = true);
    ~SceneCapture();
    SceneCapture(const SceneCapture&) = delete;
    SceneCapture& operator=(const SceneCapture&) = delete;

    nvxScene_api_file& scene() { return *writer; }
    nvxScene_api_file* operator->() { return writer.get(); }

    // Everything written so far. Each text read is also kept, under the name
    // of the running test, so that other tools can be run over it.
    std::string text();

    // The texts kept so far: test name and bytes.
    static const std::vector<std::pair<std::string, std::string>>& produced();

private:
    FILE* file;
    std::unique_ptr<nvxScene_api_file> writer;
};

// The bytes of a binary block: 01 02 03 and the kind letter, the scalar count
// and the scalars, little-endian.
std::string floatBlock(char kind, const std::vector<float>& values);
std::string intBlock(const std::vector<std::int32_t>& values);
std::string doubleBlock(const std::vector<double>& values);

// Reads a whole file as bytes.
std::string readFile(const std::string& path);

// A scene file written out by hand, with each binary block spelled as
// "<<k v v v>>": k the kind letter (c, f, i or r), then the values.
std::string decodeGolden(const std::string& spelled);

}  // namespace scenetest
