#include "host/realmodel/StandardViews.h"

#include <cmath>

namespace host::realmodel {

namespace {

using Direction = std::array<double, 3>;

Matrix viewFrom(const Direction& right, const Direction& up, const Direction& towardsViewer) {
    Matrix matrix = identityMatrix();
    for (size_t i = 0; i < 3; ++i) {
        matrix[i][0] = right[i];
        matrix[i][1] = up[i];
        matrix[i][2] = towardsViewer[i];
    }
    return matrix;
}

}  // namespace

Matrix isometricView() {
    const double half = 1.0 / std::sqrt(2.0);
    const double sixth = 1.0 / std::sqrt(6.0);
    const double third = 1.0 / std::sqrt(3.0);
    return viewFrom({half, 0.0, -half}, {-sixth, 2.0 * sixth, -sixth}, {third, third, third});
}

std::vector<View> standardViews() {
    return {
        {u"FRONT", viewFrom({1, 0, 0}, {0, 1, 0}, {0, 0, 1})},
        {u"BACK", viewFrom({-1, 0, 0}, {0, 1, 0}, {0, 0, -1})},
        {u"TOP", viewFrom({1, 0, 0}, {0, 0, -1}, {0, 1, 0})},
        {u"BOTTOM", viewFrom({1, 0, 0}, {0, 0, 1}, {0, -1, 0})},
        {u"LEFT", viewFrom({0, 0, 1}, {0, 1, 0}, {-1, 0, 0})},
        {u"RIGHT", viewFrom({0, 0, -1}, {0, 1, 0}, {1, 0, 0})},
        {u"ISOMETRIC", isometricView()},
    };
}

}  // namespace host::realmodel
