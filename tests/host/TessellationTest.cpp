#include <cmath>
#include <limits>
#include <numbers>

#include "host/geometry/ParametricSurface.h"
#include "host/geometry/TestSurface.h"
#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;
using host::TessellationOutcome;

class Tessellations : public HostOperations {
protected:
    Tessellations() : model(session().addModel(part(u"p", 3))) {
        host::shims::ProSurfacetessellationinputAlloc(context, &input);
    }

    host::TestSurface& replaceGeometry(size_t surface, host::SurfaceMesh mesh) {
        auto geometry = std::make_shared<host::TestSurface>(std::move(mesh));
        model.surfaces[surface].geometry = geometry;
        return *geometry;
    }

    ProError tessellate(size_t surface, double chordHeight, ProTessellation& tessellation) {
        host::shims::ProSurfacetessellationinputChordheightSet(context, input, chordHeight);
        return host::shims::ProSurfaceTessellationGet(context, handle(model.surfaces[surface]), input, &tessellation);
    }

    host::Model& model;
    ProSurfaceTessellationInput input = nullptr;
};

TEST_F(Tessellations, OutcomesAndChordHeightsAreRecordedPerRequest) {
    replaceGeometry(1, host::TestSurface::unitSquare()).failAbove(0.01).failBelow(0.001);
    replaceGeometry(2, host::TestSurface::unitSquare()).answerNullHandle();
    ProTessellation tessellation = nullptr;
    EXPECT_EQ(tessellate(0, 0.05, tessellation), PRO_TK_NO_ERROR);
    host::shims::ProTessellationFree(context, tessellation);
    ProTessellation untouched = reinterpret_cast<ProTessellation>(&model);
    tessellation = untouched;
    EXPECT_NE(tessellate(1, 0.05, tessellation), PRO_TK_NO_ERROR);
    EXPECT_NE(tessellate(1, 0.0005, tessellation), PRO_TK_NO_ERROR);
    EXPECT_EQ(tessellation, untouched) << "a refusal leaves the output";
    EXPECT_EQ(tessellate(1, 0.005, tessellation), PRO_TK_NO_ERROR);
    EXPECT_EQ(host::shims::ProTessellationFree(context, tessellation), PRO_TK_NO_ERROR);
    EXPECT_EQ(host::shims::ProTessellationFree(context, tessellation), PRO_TK_BAD_INPUTS) << "freed once";
    EXPECT_EQ(tessellate(2, 0.05, tessellation), PRO_TK_NO_ERROR);
    EXPECT_EQ(tessellation, nullptr);

    const auto& requests = session().tessellationRequests();
    ASSERT_EQ(requests.size(), 5u);
    const std::pair<int, TessellationOutcome> expected[] = {{101, TessellationOutcome::Done},
                                                            {102, TessellationOutcome::Failed},
                                                            {102, TessellationOutcome::Failed},
                                                            {102, TessellationOutcome::Done},
                                                            {103, TessellationOutcome::NullHandle}};
    const double chords[] = {0.05, 0.05, 0.0005, 0.005, 0.05};
    for (size_t index = 0; index < requests.size(); ++index) {
        EXPECT_EQ(requests[index].surfaceId, expected[index].first) << index;
        EXPECT_EQ(requests[index].outcome, expected[index].second) << index;
        EXPECT_EQ(requests[index].chordHeight, chords[index]) << index;
    }
    EXPECT_EQ(session().handles().tessellations.outstanding(), 0u);
}

TEST_F(Tessellations, AMissingArrayAnswersAFailureAndNull) {
    host::SurfaceMesh mesh = host::TestSurface::unitSquare();
    mesh.hasNormals = false;
    mesh.hasTriangles = false;
    replaceGeometry(0, mesh);
    ProTessellation tessellation = nullptr;
    ASSERT_EQ(tessellate(0, 0.05, tessellation), PRO_TK_NO_ERROR);
    ProVector* normals = reinterpret_cast<ProVector*>(&model);
    ProTriangle* triangles = reinterpret_cast<ProTriangle*>(&model);
    Pro2dPnt* parameters = nullptr;
    EXPECT_NE(host::shims::ProTessellationNormalsGet(context, tessellation, &normals), PRO_TK_NO_ERROR);
    EXPECT_NE(host::shims::ProTessellationFacetsGet(context, tessellation, &triangles), PRO_TK_NO_ERROR);
    EXPECT_EQ(normals, nullptr);
    EXPECT_EQ(triangles, nullptr);
    EXPECT_EQ(host::shims::ProTessellationParamsGet(context, tessellation, &parameters), PRO_TK_NO_ERROR);
    EXPECT_EQ(session().arrays().outstanding(), 1u);
    host::shims::ProTessellationFree(context, tessellation);
}

// Bad chord heights are answers the CAD host gives, not faults of the
// plug-in: a status, and no session error.
TEST_F(Tessellations, BadChordHeightsAreRefusedWithAStatusAndNoSessionError) {
    ProTessellation tessellation = nullptr;
    auto tessellateWithInput = [&] {
        return host::shims::ProSurfaceTessellationGet(context, handle(model.surfaces[0]), input, &tessellation);
    };
    const double bad[] = {-1.0, -1e-300, std::nan(""), std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity()};
    for (double chordHeight : bad) {
        EXPECT_EQ(host::shims::ProSurfacetessellationinputChordheightSet(context, input, chordHeight),
                  PRO_TK_BAD_INPUTS)
            << chordHeight;
    }
    EXPECT_EQ(tessellateWithInput(), PRO_TK_BAD_INPUTS) << "no chord height was taken";
    EXPECT_EQ(tessellation, nullptr);
    ASSERT_EQ(host::shims::ProSurfacetessellationinputChordheightSet(context, input, 0.5), PRO_TK_NO_ERROR);
    EXPECT_EQ(host::shims::ProSurfacetessellationinputChordheightSet(context, input, -0.5), PRO_TK_BAD_INPUTS);
    ASSERT_EQ(tessellateWithInput(), PRO_TK_NO_ERROR) << "the input keeps the last good chord height";
    ASSERT_EQ(session().tessellationRequests().size(), 1u);
    EXPECT_EQ(session().tessellationRequests()[0].chordHeight, 0.5);
    host::shims::ProTessellationFree(context, tessellation);
    EXPECT_TRUE(log().empty()) << log().front();
}

TEST_F(Tessellations, InputsAreCheckedAndFreedOnce) {
    ProTessellation tessellation = nullptr;
    EXPECT_EQ(host::shims::ProSurfacetessellationinputUvprojectionSet(context, input, 0, nullptr), PRO_TK_NO_ERROR);
    EXPECT_EQ(session().handles().tessellationInputs.outstanding(), 1u);
    EXPECT_EQ(host::shims::ProSurfacetessellationinputFree(context, input), PRO_TK_NO_ERROR);
    EXPECT_EQ(host::shims::ProSurfacetessellationinputFree(context, input), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(tessellate(0, 0.1, tessellation), PRO_TK_BAD_INPUTS) << "a freed input";
    EXPECT_TRUE(session().tessellationRequests().empty());
    // The freed input's second free, chord height and tessellation.
    ASSERT_EQ(log().size(), 3u);
    EXPECT_EQ(log()[0], "ProSurfacetessellationinputFree: the handle is no tessellation input that is out");
    EXPECT_EQ(log()[2], "ProSurfaceTessellationGet: the handle is no tessellation input that is out");
}

TEST(ParametricSurface, CylinderSegmentsStayWithinTheChordHeightAndFollowIt) {
    const double radius = 10.0;
    auto cylinder = host::ParametricSurface::cylinder(radius, 5.0, std::numbers::pi / 2);
    size_t previousCount = 0;
    for (double chord : {0.1, 0.01, 0.001}) {
        host::SurfaceMesh mesh;
        ASSERT_EQ(cylinder.tessellate(chord, mesh), TessellationOutcome::Done);
        ASSERT_EQ(mesh.normals.size(), mesh.vertices.size());
        // The bottom row: the worst distance between a segment's middle and the arc.
        double worst = 0.0;
        for (size_t index = 0; index + 1 < mesh.vertices.size() && mesh.vertices[index + 1][2] == 0.0; ++index) {
            double x = (mesh.vertices[index][0] + mesh.vertices[index + 1][0]) / 2;
            double y = (mesh.vertices[index][1] + mesh.vertices[index + 1][1]) / 2;
            worst = std::max(worst, radius - std::hypot(x, y));
        }
        EXPECT_LE(worst, chord) << chord;
        EXPECT_GT(worst, chord / 4) << chord << ": far finer than asked";
        EXPECT_GT(mesh.vertices.size(), previousCount);
        previousCount = mesh.vertices.size();
        for (const host::Triangle& triangle : mesh.triangles) {
            for (int corner : triangle) ASSERT_LT(size_t(corner), mesh.vertices.size());
        }
    }
    host::Point3 low{1e9, 1e9, 1e9}, high{-1e9, -1e9, -1e9};
    host::ParametricSurface::cylinder(radius, 5.0, std::numbers::pi).extend(low, high);
    EXPECT_NEAR(low[0], -radius, 1e-12);
    EXPECT_NEAR(high[1], radius, 1e-12);
    EXPECT_NEAR(low[1], 0.0, 1e-12);
}

}  // namespace
