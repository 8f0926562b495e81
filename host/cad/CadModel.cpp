#include "host/cad/CadModel.h"

#include <algorithm>
#include <cmath>

namespace host::cad {

std::array<double, 3> transformPoint(const RowMatrix& matrix, const std::array<double, 3>& point) {
    std::array<double, 3> result{};
    for (int j = 0; j < 3; ++j) {
        result[j] = point[0] * matrix[0][j] + point[1] * matrix[1][j] + point[2] * matrix[2][j] + matrix[3][j];
    }
    return result;
}

void Outline::add(const std::array<double, 3>& point) {
    if (empty()) {
        min = point;
        max = point;
        return;
    }
    for (int i = 0; i < 3; ++i) {
        min[i] = std::min(min[i], point[i]);
        max[i] = std::max(max[i], point[i]);
    }
}

double Outline::diagonal() const {
    if (empty()) return 0.0;
    return std::hypot(max[0] - min[0], max[1] - min[1], max[2] - min[2]);
}

namespace {

// Adds the eight corners of a child's box, placed in its parent.
void addPlaced(Outline& outline, const Outline& child, const RowMatrix& placement) {
    if (child.empty()) return;
    for (int corner = 0; corner < 8; ++corner) {
        std::array<double, 3> point{(corner & 1) ? child.max[0] : child.min[0],
                                    (corner & 2) ? child.max[1] : child.min[1],
                                    (corner & 4) ? child.max[2] : child.min[2]};
        outline.add(transformPoint(placement, point));
    }
}

}  // namespace

Outline outlineOf(const CadModel& model, NodeRef node) {
    if (node.kind == NodeKind::part) return model.parts.at(node.index).outline;
    Outline outline;
    for (const CadComponent& component : model.assemblies.at(node.index).components) {
        addPlaced(outline, outlineOf(model, component.target), component.placement);
    }
    return outline;
}

}  // namespace host::cad
