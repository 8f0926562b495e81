#include <vector>

#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

class Selections : public HostOperations {
protected:
    Selections() {
        host::Model& bolt = session().addModel(part(u"bolt"));
        host::Model& sub = session().addModel(assembly(u"sub"));
        addComponent(sub, &bolt, 20);
        top = &session().addModel(assembly(u"top"));
        addComponent(*top, &sub, 10);
        session().setCurrentModel(top);
    }

    ProError select(ProSelection*& selections, int& count) {
        return host::shims::ProSelect(context, "prt_or_asm", -1, nullptr, nullptr, nullptr, nullptr, &selections, &count);
    }

    host::Model* top = nullptr;
};

TEST_F(Selections, PicksBecomeSelectionsWithTheirComponentPaths) {
    session().script().select({{10, 20}, {}});
    ProSelection* selections = nullptr;
    int count = 0;
    ASSERT_EQ(select(selections, count), PRO_TK_NO_ERROR);
    ASSERT_EQ(count, 2);
    ProAsmcomppath path{};
    ASSERT_EQ(host::shims::ProSelectionAsmcomppathGet(context, selections[0], &path), PRO_TK_NO_ERROR);
    EXPECT_EQ(path.ownerModel, handle(*top));
    EXPECT_EQ(path.componentIdCount, 2);
    EXPECT_EQ(path.componentIds[0], 10);
    EXPECT_EQ(path.componentIds[1], 20);
    host::shims::ProSelectionAsmcomppathGet(context, selections[1], &path);
    EXPECT_EQ(path.componentIdCount, 0) << "the top model itself";
    int size = 0;
    host::shims::ProArraySizeGet(context, selections, &size);
    EXPECT_EQ(size, 2);
    ASSERT_EQ(session().selectRequests().size(), 1u);
    EXPECT_EQ(session().selectRequests()[0].types, "prt_or_asm");
    EXPECT_EQ(session().selectRequests()[0].maxCount, -1);
}

TEST_F(Selections, ACancelAnswersUserAbortWithNoPicks) {
    session().script().cancelSelection();
    session().script().select({{10, 99}});
    ProSelection* selections = nullptr;
    int count = 5;
    EXPECT_EQ(select(selections, count), PRO_TK_USER_ABORT);
    EXPECT_EQ(count, 0);
    count = 5;
    EXPECT_EQ(select(selections, count), PRO_TK_GENERAL_ERROR) << "a path that leads nowhere";
    EXPECT_EQ(count, 0);
    EXPECT_EQ(select(selections, count), PRO_TK_GENERAL_ERROR) << "unscripted";
    ASSERT_EQ(log().size(), 2u);
    EXPECT_EQ(log()[0],
              "ProSelect: the script picked the component path (10, 99), which doesn't lead through the "
              "components of \"top\"");
    EXPECT_EQ(session().arrays().outstanding(), 0u);
}

class FileDialogs : public HostOperations {
protected:
    ProError save(const char16_t* directory, const char16_t* name) {
        std::fill(std::begin(chosen), std::end(chosen), u'~');
        return host::shims::ProFileSave(context, u"Save as vnz", u"*.vnz", nullptr, nullptr, directory, name, chosen);
    }

    ProPath chosen;
};

TEST_F(FileDialogs, SaveAnswersTheScriptedPathAndRecordsWhatWasOffered) {
    session().script().chooseFile(u"C:\\scenes\\gear.vnz");
    session().script().cancelFile();
    ASSERT_EQ(save(u"C:\\scenes", u"old.vnz"), PRO_TK_NO_ERROR);
    EXPECT_EQ(std::u16string(chosen), u"C:\\scenes\\gear.vnz");
    EXPECT_EQ(save(u"", u""), PRO_TK_USER_ABORT);
    EXPECT_EQ(chosen[0], u'~') << "a cancel writes no path";
    EXPECT_EQ(save(nullptr, nullptr), PRO_TK_GENERAL_ERROR) << "unscripted";
    const auto& requests = session().fileDialogs();
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].operation, "ProFileSave");
    EXPECT_EQ(requests[0].title, u"Save as vnz");
    EXPECT_EQ(requests[0].filter, u"*.vnz");
    EXPECT_EQ(requests[0].defaultDirectory, u"C:\\scenes");
    EXPECT_EQ(requests[0].defaultName, u"old.vnz");
    EXPECT_EQ(requests[2].defaultDirectory, u"");
    ASSERT_EQ(log().size(), 1u);
    EXPECT_EQ(log()[0], "the plug-in asked for a file (\"Save as vnz\") but the script has no answer for it");
}

}  // namespace
