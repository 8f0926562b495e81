#include "host/realmodel/MotionRecording.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "platform/CodePage.h"

namespace host {

namespace {

void collectPaths(const Model& owner, AssemblyComponent& prefix, std::vector<AssemblyComponent>& paths) {
    for (const Feature& feature : owner.features) {
        if (feature.type != PRO_FEAT_TYPE_COMPONENT) continue;
        AssemblyComponent path = prefix;
        path.ids.push_back(feature.id);
        path.names.push_back(feature.component ? feature.component->name : u"?");
        path.placement = feature.placement;
        paths.push_back(path);
        if (feature.component) collectPaths(*feature.component, path, paths);
    }
}

// The fraction of the move done at `frame`: 0 at the first, 1 at the last.
double progressAt(int frame, int frames) { return frames > 1 ? static_cast<double>(frame) / (frames - 1) : 0.0; }

// A turn about one axis, row vectors.
Matrix rotation(int axis, double degrees) {
    const double radians = degrees * std::numbers::pi / 180.0;
    const double c = std::cos(radians), s = std::sin(radians);
    const int u = (axis + 1) % 3, v = (axis + 2) % 3;
    Matrix m = identityMatrix();
    m[static_cast<size_t>(u)][static_cast<size_t>(u)] = c;
    m[static_cast<size_t>(u)][static_cast<size_t>(v)] = s;
    m[static_cast<size_t>(v)][static_cast<size_t>(u)] = -s;
    m[static_cast<size_t>(v)][static_cast<size_t>(v)] = c;
    return m;
}

// Turns the component's axes about its own origin; the origin stays.
Matrix rotated(const Matrix& placement, int axis, double degrees) {
    Matrix turned = multiply(placement, rotation(axis, degrees));
    turned[3] = placement[3];
    return turned;
}

std::string joinIds(const std::vector<int>& ids) {
    std::string text;
    for (int id : ids) text += (text.empty() ? "" : " ") + std::to_string(id);
    return text;
}

void writeRecord(std::ostream& out, const std::vector<int>& ids, const Matrix& placement) {
    out << "Part: " << ids.size() << " (" << joinIds(ids) << ")";
    char number[32];
    for (const auto& row : placement) {
        for (size_t column = 0; column < 3; ++column) {
            std::snprintf(number, sizeof number, " %.9g", row[column]);
            out << number;
        }
    }
    out << "\n";
}

}  // namespace

std::vector<AssemblyComponent> listComponentPaths(const Model& top) {
    std::vector<AssemblyComponent> paths;
    AssemblyComponent root;
    collectPaths(top, root, paths);
    return paths;
}

std::string describeComponentPaths(const std::vector<AssemblyComponent>& paths) {
    std::string text;
    for (const AssemblyComponent& path : paths) {
        text += joinIds(path.ids) + "\t";
        for (size_t i = 0; i < path.names.size(); ++i) text += (i ? "/" : "") + platform::wideToSystem(path.names[i]);
        text += "\n";
    }
    return text;
}

Matrix placementAtFrame(const AssemblyComponent& component, const MotionDescription& motion, int frame) {
    Matrix placement = component.placement;
    const double progress = progressAt(frame, motion.frames);
    for (const Move& move : motion.moves) {
        if (move.path != component.ids) continue;
        if (move.kind == Move::Kind::Rotate) {
            placement = rotated(placement, move.axis, move.degrees * progress);
        } else {
            for (size_t i = 0; i < 3; ++i) placement[3][i] += move.by[i] * progress;
        }
    }
    return placement;
}

std::string writeMotionFile(const std::vector<AssemblyComponent>& components, const MotionDescription& motion,
                            std::ostream& out) {
    if (motion.frames < 1) return "a motion needs at least one frame, not " + std::to_string(motion.frames);
    for (const Move& move : motion.moves) {
        bool known = std::any_of(components.begin(), components.end(),
                                 [&](const AssemblyComponent& component) { return component.ids == move.path; });
        if (!known) return "\"" + joinIds(move.path) + "\" is no component path of the model";
        if (move.kind == Move::Kind::Rotate && (move.axis < 0 || move.axis > 2))
            return "the axis of a turn is x, y or z";
    }
    out << "parts: " << components.size() << "\nframes: " << motion.frames << "\n";
    for (int frame = 0; frame < motion.frames; ++frame) {
        out << "MaFrame " << frame + 1 << "\n";
        for (const AssemblyComponent& component : components)
            writeRecord(out, component.ids, placementAtFrame(component, motion, frame));
    }
    return {};
}

}  // namespace host
