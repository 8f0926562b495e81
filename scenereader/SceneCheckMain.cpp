// vantrel-scene-check FILE...
#include <iostream>

#include "scenereader/SceneCheckTool.h"

int main(int argc, char** argv) {
    return scenereader::runSceneCheck(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
