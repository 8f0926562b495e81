// vantrel-scene info|check|to-gltf|preview ...
#include <iostream>

#include "scenetools/SceneCommand.h"

int main(int argc, char** argv) {
    return scenetools::runSceneCommand(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
