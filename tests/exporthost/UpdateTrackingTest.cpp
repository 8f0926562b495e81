// The traversal as an Update drives it, on the file road: the plug-in runs in
// this process with the host's table, the version stamps are kept from run to
// run, and each run's scene shows which groups carry geometry.
#include <gtest/gtest.h>

#include <filesystem>

#include "export/ExportDrivers.h"
#include "export/Representations.h"
#include "export/ModelName.h"
#include "export/RunContext.h"
#include "export/UpdateTracking.h"
#include "host/ActiveSession.h"
#include "host/FunctionTable.h"
#include "host/Session.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/core/VantrelPlugin.h"
#include "scenereader/SceneReader.h"
#include "tests/exporthost/Rig.h"
#include "tests/support/InProcessPlugin.h"

namespace {

namespace fs = std::filesystem;

// The plug-in started in this process through its entry point, on a session
// of its own, in a working directory of its own.
class UpdateTracking : public ::testing::Test {
protected:
    void SetUp() override {
        plugin_ = std::make_unique<testsupport::InProcessPlugin>(
            session, "vantrel_update_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        ASSERT_TRUE(plugin_->started());
        exporttest::Rig built = exporttest::buildRig(session);
        bolt = built.bolt;
        rig = built.rig;
        session.setCurrentModel(rig);
        session.setMode(PRO_MODE_ASSEMBLY);
    }
    void TearDown() override { plugin_.reset(); }

    // One run of the traversal into a scene file, with the plug-in's state
    // as it stands: the stamps of the runs before are kept.
    std::string run(int mode = PRO_MODE_ASSEMBLY) {
        VantrelPlugin& plugin = *VantrelPlugin::instance();
        plugin.updateRun = true;
        session.setMode(mode);
        ProMdl model = nullptr;
        ProMdlCurrentGet(&model);
        std::string name = modelNameOf(model);
        fs::path file = plugin_->directory() / ("run" + std::to_string(++runs_) + ".vnz");
        {
            nvx::LightFileFactory factory(file.string());
            nvx::nvxSceneapi_oo layer(factory);
            RunContext context(plugin, ExportRoad::Update, layer, 1.0f);
            RepresentationItems items;
            ComponentVisitData visitData;
            visitData.representationItems = &items;
            selectForUpdate(plugin, mode, visitData);
            if (mode == PRO_MODE_ASSEMBLY) selectRepresentation(model, visitData);
            layer.begin_group(name);
            exportModel(context, model, mode, visitData, name);
            layer.end_group();
        }
        return exporttest::groupsWithGeometry(scenereader::readSceneFile(file.string()));
    }

    host::Session session;
    host::Model* bolt = nullptr;
    host::Model* rig = nullptr;

private:
    std::unique_ptr<testsupport::InProcessPlugin> plugin_;
    int runs_ = 0;
};

TEST_F(UpdateTracking, ChangedComponentsSendGeometryAndTheTopAlways) {
    EXPECT_EQ(run(), "bolt bolt hub cover rig") << "a first Update finds no rows: all counts as changed";
    EXPECT_EQ(run(), "rig") << "nothing changed: only the top model's own solid";
    bolt->modify();
    EXPECT_EQ(run(), "bolt bolt rig") << "both occurrences of the modified part";
    EXPECT_EQ(run(), "rig");
}

TEST_F(UpdateTracking, ManualModeAddsThePicks) {
    run();
    VantrelPlugin::instance()->settings.selectionMode = 1;
    session.script().select({{11, 23}});
    EXPECT_EQ(run(), "hub rig") << "a picked sub-assembly hands the pick down";
    session.script().select({{11, 21}});
    EXPECT_EQ(run(), "bolt rig") << "a part picked on one of its two paths";
    session.script().select({});
    EXPECT_EQ(run(), "rig") << "nothing picked is automatic mode";
    session.script().select({{}});
    EXPECT_EQ(run(), "bolt bolt hub cover rig") << "the top picked: everything below it";
    bolt->modify();
    session.script().select({{12}});
    EXPECT_EQ(run(), "bolt bolt cover rig") << "a pick adds to the stamps' verdict";
    EXPECT_EQ(session.selectRequests().size(), 5u);
    EXPECT_TRUE(session.errors().empty());
}

TEST_F(UpdateTracking, ManualModeOnAPartAsksForNoPicks) {
    VantrelPlugin::instance()->settings.selectionMode = 1;
    session.setCurrentModel(bolt);
    EXPECT_EQ(run(PRO_MODE_PART), "bolt");
    EXPECT_TRUE(session.selectRequests().empty());
    EXPECT_TRUE(session.errors().empty());
}

}  // namespace
