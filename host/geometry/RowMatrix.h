#pragma once
// The host's 4x4 transforms: row vectors, translation in row 3, as the
// toolkit hands them out. The session's models and the kernel's neutral
// models share this one type and its identity.
#include <array>

namespace host {

using Matrix = std::array<std::array<double, 4>, 4>;

inline Matrix identityMatrix() {
    Matrix m{};
    for (size_t i = 0; i < 4; ++i) m[i][i] = 1.0;
    return m;
}

}  // namespace host
