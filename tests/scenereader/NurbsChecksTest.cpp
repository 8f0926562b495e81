// The reader's checks of exact surfaces: a sound trimmed patch passes, and
// each kind of damage is named.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/scenereader/SceneBytes.h"

namespace {

// The attributes of a "nurbs" geometry, each replaceable by a test.
struct Nurbs {
    std::string uorder = "2", vorder = "2";
    std::vector<double> uknot{0, 0, 1, 1}, vknot{0, 0, 1, 1};
    // 2 x 2 points with w = 1.
    std::vector<double> pw{0, 0, 0, 1, 1, 0, 0, 1, 0, 1, 0, 1, 1, 1, 0, 1};
    // One outer contour of four straight curves around the domain, the
    // curves given in reverse order as a reversed chain comes out.
    std::vector<int32_t> nedges{4}, inside{1}, orders{2, 2, 2, 2}, nknots{4, 4, 4, 4};
    std::vector<double> mins{0, 0, 0, 0}, maxs{1, 1, 1, 1};
    std::vector<double> knots{0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 1, 0, 0, 1, 1};
    std::vector<double> uvw{0, 1, 1, 0, 0, 1, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 1, 0, 0, 1, 1, 0, 1};

    std::string bytes() const {
        SceneBytes b;
        b.text("object \"p\" {\ngeometry \"nurbs\" {\n\"umin\" 0,\n\"umax\" 1,\n\"vmin\" 0,\n\"vmax\" 1,\n\"uorder\" ")
            .text(uorder.c_str()).text(",\n\"vorder\" ").text(vorder.c_str()).text(",\n");
        doubles(b, "uknot", uknot);
        doubles(b, "vknot", vknot);
        doubles(b, "Pw", pw);
        ints(b, "trim_nedges", nedges);
        ints(b, "trim_inside", inside);
        ints(b, "edge_order", orders);
        ints(b, "edge_nknots", nknots);
        doubles(b, "edge_min", mins);
        doubles(b, "edge_max", maxs);
        doubles(b, "edge_knot", knots);
        doubles(b, "edge_uvw", uvw);
        b.text("}\n}\n");
        return b.str();
    }

    static void doubles(SceneBytes& b, const char* name, const std::vector<double>& values) {
        b.text("\"").text(name).text("\" [ ");
        b.doubles(values);
        b.text("] ,\n");
    }
    static void ints(SceneBytes& b, const char* name, const std::vector<int32_t>& values) {
        b.text("\"").text(name).text("\" [ ");
        b.ints(values);
        b.text("] ,\n");
    }
};

std::vector<std::string> problemsOf(const Nurbs& nurbs) {
    return scenereader::checkScene(scenereader::parseScene(nurbs.bytes()));
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

TEST(NurbsChecks, ASoundTrimmedPatchPassesInEitherChainOrder) {
    Nurbs nurbs;
    EXPECT_EQ(problemsOf(nurbs), std::vector<std::string>{});
    // The same contour run forwards: (0,0)->(1,0)->(1,1)->(0,1)->(0,0).
    nurbs.uvw = {0, 0, 1, 1, 0, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1, 0, 1, 1, 0, 0, 1};
    EXPECT_EQ(problemsOf(nurbs), std::vector<std::string>{});
    EXPECT_TRUE(scenereader::sceneWarnings(scenereader::parseScene(nurbs.bytes())).empty());
}

TEST(NurbsChecks, EachKindOfDamageIsNamed) {
    struct Case {
        const char* damage;
        void (*apply)(Nurbs&);
        const char* expected;
    };
    const Case cases[] = {
        {"decreasing knots", [](Nurbs& n) { n.uknot = {0, 1, 0, 1}; }, "\"uknot\" decreases"},
        {"knots short of order plus count", [](Nurbs& n) { n.vknot = {0, 0, 1}; },
         "\"Pw\" holds 16 numbers, not 4 for each of 2 x 1 control points"},
        {"a weight of 0", [](Nurbs& n) { n.pw[7] = 0; }, "control point 1 has the weight"},
        {"a trim weight below 0", [](Nurbs& n) { n.uvw[5] = -1; }, "trim curve 0 has a weight that is not positive"},
        {"trim counts that disagree", [](Nurbs& n) { n.nedges = {3}; }, "the trim arrays disagree"},
        {"decreasing trim knots", [](Nurbs& n) { n.knots[1] = 2; }, "the knots of trim curve 0 decrease"},
        {"a contour that stays open", [](Nurbs& n) { n.uvw[0] = 0.5; }, "trim contour 0 of 4 curves does not close"},
    };
    for (const Case& c : cases) {
        Nurbs nurbs;
        c.apply(nurbs);
        const std::string problems = joined(problemsOf(nurbs));
        EXPECT_NE(problems.find(c.expected), std::string::npos) << c.damage << ": " << problems;
    }
}

TEST(NurbsChecks, TrimPointsOutsideTheDomainWarnWithAMargin) {
    Nurbs nurbs;
    // The curve (0,1)->(0,0) pushed to u = -0.005 stays within the 1 % margin
    // (and still closes, so no problem); pushed to -0.02 it warns.
    nurbs.uvw = {-0.005, 1, 1, -0.005, 0, 1, 1, 1, 1, -0.005, 1, 1, 1, 0, 1, 1, 1, 1, -0.005, 0, 1, 1, 0, 1};
    auto document = scenereader::parseScene(nurbs.bytes());
    EXPECT_EQ(scenereader::checkScene(document), std::vector<std::string>{});
    EXPECT_TRUE(scenereader::sceneWarnings(document).empty());
    for (size_t i : {0u, 3u, 9u, 18u}) nurbs.uvw[i] = -0.02;
    auto warnings = scenereader::sceneWarnings(scenereader::parseScene(nurbs.bytes()));
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("4 trim control points lie outside the surface's domain"), std::string::npos);
}

TEST(NurbsChecks, MeshVerticesMustLieOnTheGroupsExactSurfaces) {
    // The patch is the unit square in z = 0; the mesh's third vertex lies on
    // it, then half a unit above it (the tolerance is 2 % of the mesh's
    // diagonal, 0.03).
    for (float z : {0.0f, 0.5f}) {
        Nurbs nurbs;
        std::string bytes = nurbs.bytes();
        SceneBytes mesh;
        mesh.text("object \"p\" {\ngeometry \"triangles\" {\n\"vertices\" [ ")
            .floats('c', {0, 0, 0, 1, 0, 0, 0, 1, z})
            .text("] ,\n\"triangles\" [ ")
            .ints({0, 1, 2})
            .text("] ,\n}\n}\n");
        auto problems = scenereader::checkScene(scenereader::parseScene("group \"g\" {\n" + bytes + mesh.str() + "}\n"));
        if (z == 0.0f) {
            EXPECT_EQ(problems, std::vector<std::string>{});
        } else {
            ASSERT_EQ(problems.size(), 1u);
            EXPECT_NE(problems[0].find("mesh vertex 2 lies 0.5"), std::string::npos) << problems[0];
        }
    }
}

// An accordion of 13 folds, 10 high: the 48 x 48 grid of samples leaves 2.7
// between its points along a fold, while the tolerance is 0.38. A vertex on
// the surface halfway between two samples still lies on it.
TEST(NurbsChecks, AVertexBetweenTheSamplesOfALargeFoldedSurfaceLiesOnIt) {
    Nurbs folded;
    folded.uknot = {0, 0};
    folded.pw.clear();
    for (int k = 1; k <= 13; ++k) folded.uknot.push_back(k);
    folded.uknot.push_back(13);
    for (double y : {0.0, 10.0}) {
        for (int k = 0; k <= 13; ++k) folded.pw.insert(folded.pw.end(), {double(k), y, k % 2 ? 10.0 : 0.0, 1.0});
    }
    const float u = 13.0f / 96.0f;  // halfway between the first two samples along the folds
    SceneBytes mesh;
    mesh.text("object \"m\" {\ngeometry \"triangles\" {\n\"vertices\" [ ")
        .floats('c', {0, 0, 0, 13, 10, 10, u, 5, 10 * u})
        .text("] ,\n\"triangles\" [ ")
        .ints({0, 1, 2})
        .text("] ,\n}\n}\n");
    const std::string scene = "group \"g\" {\n" + folded.bytes() + mesh.str() + "}\n";
    EXPECT_EQ(scenereader::checkScene(scenereader::parseScene(scene)), std::vector<std::string>{});
}

}  // namespace
