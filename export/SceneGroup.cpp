#include "export/SceneGroup.h"

#include <exception>

#include "animation/AnimationEmission.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"

SceneGroup::SceneGroup(nvx::nvxSceneapi_oo& scene, const std::string& name)
    : scene_(scene), exceptionsAtOpen_(std::uncaught_exceptions()) {
    scene_.begin_group(name);
}

SceneGroup::SceneGroup(nvx::nvxSceneapi_oo& scene, const std::string& name, GroupFlags flags)
    : SceneGroup(scene, name) {
    setFlags(flags);
}

SceneGroup::~SceneGroup() {
    if (std::uncaught_exceptions() > exceptionsAtOpen_) return;
    try {
        scene_.end_group();
    } catch (...) {
        // A scene that can't take the close of a group fails again, and is
        // reported, when its factory closes it.
    }
}

void SceneGroup::setFlags(GroupFlags flags) { scene_.scene()->set_flags(static_cast<unsigned>(flags)); }

void SceneGroup::place(VantrelPlugin& plugin, const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath,
                       const std::string& name, const ProMatrix transform) {
    emitAnimation(*scene_.scene(), plugin, fullPath, localPath, name);
    scene_.scene()->apply_transform(&transform[0][0]);
}
