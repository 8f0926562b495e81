#include <cstdio>
#include <stdexcept>

#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/Utf8.h"
#include "importers/sceneapi/nvxScene_api_file.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "platform/Files.h"

namespace nvx {

namespace {

const char* const HEADER_LINES[] = {
    "//---norvex:dal:7---\n",
    "//---import:dal:1---\n",
    "//---id:1---\n",
    "// This is a Vantrel scene file\n\n",
};

}  // namespace

LightFileFactory::LightFileFactory(std::string path) {
    if (path == "-") {
        file = platform::takeStandardOutput();
    } else {
        file = platform::openFile(utf8ToWide(path), utf8ToWide("wb+"));
    }
    if (!file) {
        std::perror("opening file");
        throw std::runtime_error("could not open file: \"" + path + "\"");
    }
    file_scene = new nvxScene_api_file(file, true);
}

LightFileFactory::~LightFileFactory() { close(); }

nvxScene_api* LightFileFactory::scene() { return file_scene; }

void LightFileFactory::begin(nvxSceneapi_oo& layer) {
    char line[4096];
    for (const char* header : HEADER_LINES) {
        std::snprintf(line, sizeof line, "%s", header);
        layer.scene()->write_text("%s", line);
    }
}

void LightFileFactory::close() {
    delete file_scene;
    file_scene = nullptr;
    if (file && std::fclose(file) != 0) {
        std::perror("closing file");
        throw std::runtime_error("could not close file");
    }
}

}  // namespace nvx
