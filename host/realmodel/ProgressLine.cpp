#include "host/realmodel/ProgressLine.h"

namespace host::realmodel {

void ProgressLine::show(std::size_t done, std::size_t total) {
    if (total == 0 || ended_) return;
    const std::size_t step = total / 100 + 1;
    if (done % step != 0 && done < total) return;
    if (done > total) done = total;
    std::fprintf(out_, "\rmeshing surfaces: %zu of %zu", done, total);
    if (done == total) {
        std::fputc('\n', out_);
        ended_ = true;
    }
    std::fflush(out_);
}

}  // namespace host::realmodel
