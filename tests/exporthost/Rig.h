#pragma once
// The assembly that the Update tests drive, and what a run's scene shows of it.
#include <string>
#include <vector>

#include "host/Session.h"
#include "host/testing/ModelBuilder.h"
#include "scenereader/SceneDocument.h"

namespace exporttest {

struct Rig {
    host::Model* bolt;
    host::Model* rig;
};

// rig (with a surface of its own): frame [bolt, bolt, wheel [hub]], cover.
inline Rig buildRig(host::Session& session) {
    using namespace host::fixtures;
    host::Model& bolt = session.addModel(part(u"bolt", 1));
    host::Model& hub = session.addModel(part(u"hub", 1));
    host::Model& cover = session.addModel(part(u"cover", 1));
    host::Model& wheel = session.addModel(assembly(u"wheel"));
    addComponent(wheel, &hub, 31);
    host::Model& frame = session.addModel(assembly(u"frame"));
    addComponent(frame, &bolt, 21, translation(1, 0, 0));
    addComponent(frame, &bolt, 22, translation(2, 0, 0));
    addComponent(frame, &wheel, 23);
    host::Model& rig = session.addModel(part(u"rig", 1));
    rig.type = PRO_MDL_ASSEMBLY;
    addComponent(rig, &frame, 11);
    addComponent(rig, &cover, 12);
    return {&bolt, &rig};
}

// The names of the solid groups that carry geometry (flags 1024), in scene order.
inline std::string groupsWithGeometry(const scenereader::Document& scene) {
    std::string names;
    for (const scenereader::Block* group : scene.root.descendants("group")) {
        const scenereader::Statement* flags = group->statement("flags");
        if (flags && flags->numbers() == std::vector<double>{1024}) names += (names.empty() ? "" : " ") + group->name();
    }
    return names;
}

}  // namespace exporttest
