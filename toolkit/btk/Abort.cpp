#include "toolkit/btk/Abort.h"

#include <cstdio>
#include <cstdlib>

namespace btk {

void foundationAbort(const char* message) {
    std::fprintf(stderr, "%s\n", message);
    std::fflush(stderr);
    std::exit(1);
}

}  // namespace btk
