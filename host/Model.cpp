#include "host/Model.h"

namespace host {

Matrix identityMatrix() {
    Matrix m{};
    for (int i = 0; i < 4; ++i) m[static_cast<size_t>(i)][static_cast<size_t>(i)] = 1.0;
    return m;
}

}  // namespace host
