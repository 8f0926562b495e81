// How a stream that names a held model is merged into it, on scenes written
// by hand: the held scene, the stream, and the scene expected after. A held
// item that stays goes before the sent twin of the next held item that has
// one, else at the end.
#include <gtest/gtest.h>

#include "SceneDifference.h"
#include "renderer/SceneMerge.h"
#include "scenereader/SceneReader.h"

namespace renderer::testing {
namespace {

struct MergeCase {
    const char* name;
    const char* held;
    const char* sent;
    const char* expected;
};

void PrintTo(const MergeCase& merge, std::ostream* out) { *out << merge.name; }

const MergeCase CASES[] = {
    {"AGroupSentWithoutObjectsKeepsItsObjectsAndTakesItsNewTransform",
     "group \"m\" {\ngroup \"a\" {\nflags 1024\nobject \"a\" {\nid 1\n}\ntransform 1\n}\n}\n",
     "group \"m\" {\ngroup \"a\" {\ntransform 2\n}\n}\n",
     "group \"m\" {\ngroup \"a\" {\nflags 1024\nobject \"a\" {\nid 1\n}\ntransform 2\n}\n}\n"},
    {"AGroupSentWithObjectsHasTheSentObjectsAlone",
     "group \"m\" {\ngroup \"a\" {\nobject \"a\" {\nid 1\n}\nobject \"b\" {\nid 2\n}\n}\n}\n",
     "group \"m\" {\ngroup \"a\" {\nobject \"a\" {\nid 3\n}\n}\n}\n",
     "group \"m\" {\ngroup \"a\" {\nobject \"a\" {\nid 3\n}\n}\n}\n"},
    {"GroupsNotSentStayInTheirPlace",
     "group \"m\" {\ngroup \"a\" {\nid 1\n}\ngroup \"b\" {\nid 2\n}\ngroup \"c\" {\nid 3\n}\n}\n",
     "group \"m\" {\ngroup \"a\" {\nid 4\n}\ngroup \"c\" {\nid 6\n}\n}\n",
     "group \"m\" {\ngroup \"a\" {\nid 4\n}\ngroup \"b\" {\nid 2\n}\ngroup \"c\" {\nid 6\n}\n}\n"},
    {"GroupsOfOneNameAreMatchedInTurn",
     "group \"m\" {\ngroup \"n\" {\nid 1\n}\ngroup \"r\" {\nid 2\n}\ngroup \"n\" {\nid 3\n}\n}\n",
     "group \"m\" {\ngroup \"n\" {\ntransform 7\n}\ngroup \"n\" {\ntransform 8\n}\n}\n",
     "group \"m\" {\ngroup \"n\" {\ntransform 7\nid 1\n}\ngroup \"r\" {\nid 2\n}\ngroup \"n\" {\ntransform 8\nid 3\n}\n}\n"},
    {"ANewGroupIsAdded", "group \"m\" {\ngroup \"a\" {\nid 1\n}\n}\n", "group \"m\" {\ngroup \"b\" {\nid 2\n}\n}\n",
     "group \"m\" {\ngroup \"b\" {\nid 2\n}\ngroup \"a\" {\nid 1\n}\n}\n"},
    {"TheTopLevelBesideTheModelIsTheStreams", "version 6\ngroup \"m\" {\nid 1\n}\n",
     "version 7\ngroup \"m\" {\nid 1\n}\n", "version 7\ngroup \"m\" {\nid 1\n}\n"},
};

class SceneMergeTest : public ::testing::TestWithParam<MergeCase> {};

TEST_P(SceneMergeTest, GivesTheExpectedScene) {
    scenereader::Block held = scenereader::parseScene(GetParam().held).root;
    mergeScene(held, scenereader::parseScene(GetParam().sent).root);
    EXPECT_EQ(modelNameOf(held), "m");
    EXPECT_EQ(firstDifference(held, scenereader::parseScene(GetParam().expected).root), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, SceneMergeTest, ::testing::ValuesIn(CASES),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace renderer::testing
