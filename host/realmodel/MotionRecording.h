#pragma once
// The host's mechanism: records simple motions of an assembly's components
// and writes them as a motion file (".fra") in the host's format, which the
// plug-in's animation dialog reads:
//
//     parts: 3
//     frames: 50
//     MaFrame 1
//     Part: 1 (41) r00 r01 r02 r10 r11 r12 r20 r21 r22 t0 t1 t2
//     Part: 2 (41 7) ...
//     MaFrame 2
//     ...
//
// Each record holds a component's placement in its parent at that frame:
// rows 0 to 2 of the rotation and the translation of row 3. Every component
// stands in every frame, moving or not.
#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "host/Model.h"

namespace host {

// A component of an assembly as the plug-in sees it.
struct AssemblyComponent {
    std::vector<int> ids;               // component feature ids from the top assembly down
    std::vector<std::u16string> names;  // the models along the path
    Matrix placement = identityMatrix();  // in its parent
};

// Every component below `top`, depth first in the host's visit order. A
// component whose model isn't loaded is listed without children.
std::vector<AssemblyComponent> listComponentPaths(const Model& top);

// "41 7\tframe/bolt": the ids, a tab, the names joined by "/" in the system's
// code page; one line each.
std::string describeComponentPaths(const std::vector<AssemblyComponent>& paths);

// One move of one component over the whole recording, from nothing at the
// first frame to all of it at the last.
struct Move {
    enum class Kind { Rotate, Translate };
    Kind kind = Kind::Rotate;
    std::vector<int> path;
    int axis = 2;                      // Rotate: 0 x, 1 y, 2 z of the parent, through the component's origin
    double degrees = 0;                // Rotate
    std::array<double, 3> by{};        // Translate: in the parent's axes
};

struct MotionDescription {
    int frames = 50;
    std::vector<Move> moves;  // several on one path apply in this order
};

// The placement of a component at `frame` (0 to frames - 1) under the moves
// that name its path.
Matrix placementAtFrame(const AssemblyComponent& component, const MotionDescription& motion, int frame);

// Writes the motion file. Answers an empty text, or what is wrong with the
// description (no frames, a move on a path that is no component) with nothing
// written.
std::string writeMotionFile(const std::vector<AssemblyComponent>& components, const MotionDescription& motion,
                            std::ostream& out);

}  // namespace host
