// The loader of the renderer's library: where it looks and in which order,
// libraries that load but give no root, and the loader's life.
#include <gtest/gtest.h>

#include "importers/sceneapi/nvxLiveLoader.h"
#include "tests/sceneapi/live/LiveTestSupport.h"

namespace {

using livetest::LiveEnvironment;
using livetest::StubControl;

const char* const NAME_32 = "nvxvantrellive6_32.so";
const char* const NAME_64 = "nvxvantrellive6_64.so";

std::string activePath(const livetest::fs::path& folder) {
    return "[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\n\"VantrelActivePath\"=\"" + folder.string() + "\"\n";
}

// Where copies of the stand-in lie: in the registered folder ("absolute") or
// the working directory ("relative"), under each suffix.
struct Placement {
    const char* name;
    bool absolute32, absolute64, relative32, relative64;
    int loaded;  // 0 to 3 in the order above
};

void PrintTo(const Placement& c, std::ostream* out) { *out << c.name; }

class CandidateOrder : public testing::TestWithParam<Placement> {};

TEST_P(CandidateOrder, TheFirstCandidateThatExistsIsLoaded) {
    LiveEnvironment live;
    const Placement& placement = GetParam();
    live.writeUserRegistry(activePath(live.install));
    const bool present[] = {placement.absolute32, placement.absolute64, placement.relative32, placement.relative64};
    const livetest::fs::path paths[] = {live.install / NAME_32, live.install / NAME_64, live.work / NAME_32,
                                        live.work / NAME_64};
    for (int i = 0; i < 4; ++i)
        if (present[i]) live.placeLibrary(LIVE_STUB_LIBRARY, paths[i].parent_path(), paths[i].filename());

    ASSERT_NE(nvx_get_scene_api(), nullptr);
    // A copy that the loader holds answers with its root; any other loads
    // afresh here and has made none.
    for (int i = 0; i < 4; ++i) {
        if (!present[i]) continue;
        EXPECT_EQ(StubControl(paths[i]).rootsMade(), i == placement.loaded ? 1 : 0) << paths[i];
    }
}

INSTANTIATE_TEST_SUITE_P(Loader, CandidateOrder,
                         testing::Values(Placement{"AllFour", true, true, true, true, 0},
                                         Placement{"Absolute64AndRelative", false, true, true, true, 1},
                                         Placement{"RelativeOnly", false, false, true, true, 2},
                                         Placement{"Relative64Only", false, false, false, true, 3}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Loader, WithoutAnActivePathTheMachinesBinaryFolderIsUsed) {
    LiveEnvironment live;
    live.writeMachineRegistry("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"Vantrel 6\"\n\n"
                              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex\\Vantrel 6]\n\"BinFolder\"=\"" +
                              live.install.string() + "\"\n");
    auto library = live.placeLibrary(LIVE_STUB_LIBRARY, live.install, NAME_64);
    ASSERT_NE(nvx_get_scene_api(), nullptr);
    EXPECT_EQ(StubControl(library).rootsMade(), 1);
}

TEST(Loader, TheActivePathGoesBeforeTheBinaryFolder) {
    LiveEnvironment live;
    auto binaries = live.root / "binaries";
    live.writeUserRegistry(activePath(live.install));
    live.writeMachineRegistry("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"Vantrel 6\"\n\n"
                              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex\\Vantrel 6]\n\"BinFolder\"=\"" +
                              binaries.string() + "\"\n");
    auto active = live.placeLibrary(LIVE_STUB_LIBRARY, live.install, NAME_64);
    auto bin = live.placeLibrary(LIVE_STUB_LIBRARY, binaries, NAME_32);
    ASSERT_NE(nvx_get_scene_api(), nullptr);
    EXPECT_EQ(StubControl(active).rootsMade(), 1);
    EXPECT_EQ(StubControl(bin).rootsMade(), 0);
}

// A library that loads but gives no root is a failure, and the search stops
// at it: the next candidate is not tried.
class LibraryWithoutRoot : public testing::TestWithParam<const char*> {};

TEST_P(LibraryWithoutRoot, FailsAndIsTriedAgainAtTheNextCall) {
    LiveEnvironment live;
    live.writeUserRegistry(activePath(live.install));
    auto broken = live.placeLibrary(GetParam(), live.install, NAME_32);
    auto stub = live.placeLibrary(LIVE_STUB_LIBRARY, live.install, NAME_64);
    EXPECT_EQ(nvx_get_scene_api(), nullptr);
    EXPECT_EQ(nvx_get_query_api(), nullptr);
    EXPECT_EQ(StubControl(stub).rootsMade(), 0);

    livetest::fs::remove(broken);
    EXPECT_NE(nvx_get_scene_api(), nullptr);
    EXPECT_EQ(StubControl(stub).rootsMade(), 1);
}

INSTANTIATE_TEST_SUITE_P(Loader, LibraryWithoutRoot, testing::Values(LIVE_NO_EXPORT_LIBRARY, LIVE_NULL_ROOT_LIBRARY));

TEST(Loader, TheLoaderIsMadeOnceAndReleasedOnce) {
    LiveEnvironment live;
    live.writeUserRegistry(activePath(live.install));
    StubControl stub(live.placeLibrary(LIVE_STUB_LIBRARY, live.install, NAME_64));

    nvx_release_live();  // no loader yet: nothing happens
    nvxScene_api* scene = nvx_get_scene_api();
    ASSERT_NE(scene, nullptr);
    EXPECT_NE(nvx_get_query_api(), nullptr);
    EXPECT_EQ(nvx_get_scene_api(), scene);
    EXPECT_EQ(stub.rootsMade(), 1);

    nvx_release_live();
    nvx_release_live();
    EXPECT_EQ(stub.rootsDeleted(), 1);
    EXPECT_NE(nvx_get_scene_api(), nullptr);
    EXPECT_EQ(stub.rootsMade(), 2);
}

TEST(Loader, NoLibraryAnywhereAnswersNullAndSaysSoInTheLog) {
    LiveEnvironment live;
    EXPECT_EQ(nvx_get_scene_api(), nullptr);
    EXPECT_EQ(nvx_get_query_api(), nullptr);
    std::string log = livetest::fileText(live.temporary / "sceneapi.log");
    EXPECT_NE(log.find(" DEBUG4:  nvxVantrelLiveLoader :: initialize()\n"), std::string::npos) << log;
    EXPECT_NE(log.find(" WARNING:  NO shared handle\n"), std::string::npos) << log;
    EXPECT_NE(log.find(" DEBUG4:  nvx_get_query_api -> vantrel_live_loader: 0\n"), std::string::npos) << log;
}

}  // namespace
