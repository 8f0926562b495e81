// vantrel-sample OUT.step: writes the bundled sample model.
#include <cstdio>
#include <exception>

#include "host/cad/SampleModel.h"
#include "host/cad/XdeDocument.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: vantrel-sample OUT.step\n");
        return 2;
    }
    try {
        host::cad::quietKernelMessages();
        const host::cad::SampleFiles files = host::cad::writeSampleStep(argv[1]);
        std::printf("wrote %s and %s\n", files.stepPath.c_str(), files.meshPath.c_str());
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "vantrel-sample: %s\n", failure.what());
        return 1;
    }
}
