#include <cstdio>
#include <stdexcept>
#include <utility>

#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/nvxScene_api_file.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "platform/Files.h"
#include "platform/Utf8.h"

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
        file = platform::openFile(platform::utf8ToWide(path), u"wb+");
    }
    if (!file) {
        std::perror("opening file");
        throw std::runtime_error("could not open file: \"" + path + "\"");
    }
    file_scene = new nvxScene_api_file(file, true);
}

LightFileFactory::~LightFileFactory() {
    try {
        close();
    } catch (const std::exception&) {
        // Only a factory that no one closed gets here with a file open: its
        // run is ending by another failure, which is the one reported.
    }
}

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
    FILE* closing = std::exchange(file, nullptr);
    if (closing && std::fclose(closing) != 0) {
        std::perror("closing file");
        throw std::runtime_error("could not close file");
    }
}

}  // namespace nvx
