#pragma once
// A group of the scene, written in one fixed order: opened with its name,
// then its flags, its content, and for the node of a component its
// animation and then its transform; closed when the object goes.
#include <string>

#include "toolkit/ProToolkit.h"

namespace nvx {
class nvxSceneapi_oo;
}
class VantrelPlugin;

// The words that the renderer reads from a group's flags.
enum class GroupFlags : unsigned {
    Assembly = 32768,   // a group of the assembly tree, and the top group on the live road
    Solid = 1024,       // the group of a part's occurrence that carries its geometry
    ExactRows = 66560,  // a part's rows of one material, sent also as exact surfaces; an instance row
};

class SceneGroup {
public:
    // Opens the group; with flags, gives it those.
    SceneGroup(nvx::nvxSceneapi_oo& scene, const std::string& name);
    SceneGroup(nvx::nvxSceneapi_oo& scene, const std::string& name, GroupFlags flags);
    SceneGroup(const SceneGroup&) = delete;
    SceneGroup& operator=(const SceneGroup&) = delete;
    // Closes the group, unless an exception is ending the run: then the
    // scene is left as it stands for the factory to close.
    ~SceneGroup();

    void setFlags(GroupFlags flags);

    // Ends a component's node: the motion of the component, if it has one,
    // then its transform relative to its parent.
    void place(VantrelPlugin& plugin, const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath,
               const std::string& name, const ProMatrix transform);

private:
    nvx::nvxSceneapi_oo& scene_;
    int exceptionsAtOpen_;
};
