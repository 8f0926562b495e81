// The session's models built from loaded CAD files: their layers, and the
// saved views that every one of them carries.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "../hostcad/CadTestSupport.h"
#include "MadeModels.h"
#include "host/realmodel/ModelLoading.h"
#include "host/realmodel/StandardViews.h"

namespace host::realmodel {
namespace {

// The shown cube, one on a hidden layer and one hidden in the file: the
// layers keep their file's names and statuses, each under an id of its own,
// and each part's surfaces belong to its solid feature.
TEST(SessionModels, HiddenComponentsSitOnBlankedLayers) {
    cad::testing::ScratchFolder folder;
    testing::writeCubesWithHiddenOnes(folder.file("layers.step"));
    Session session;
    const Model& top = *loadModelIntoSession(session, folder.file("layers.step")).models.top;
    std::map<std::u16string, int> statuses;
    std::set<int> ids;
    for (const Layer& layer : top.layers) {
        statuses[layer.name] = layer.displayStatus;
        ids.insert(layer.id);
    }
    EXPECT_EQ(statuses, (std::map<std::u16string, int>{
                            {u"SHOWN", PRO_LAYER_NORMAL}, {u"CONSTRUCTION", PRO_LAYER_BLANK}, {blankedLayerName, PRO_LAYER_BLANK}}));
    EXPECT_EQ(ids.size(), top.layers.size());
    for (const Feature& component : top.features) {
        for (const Surface& surface : component.component->surfaces)
            EXPECT_EQ(surface.featureId, component.component->features.at(0).id) << "owned by the part's solid";
    }
}

TEST(SessionModels, StandardViewsAreRotationsNamedAsTheHostNamesThem) {
    const std::vector<View> views = standardViews();
    std::vector<std::u16string> names;
    for (const View& view : views) names.push_back(view.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"FRONT", u"BACK", u"TOP", u"BOTTOM", u"LEFT", u"RIGHT",
                                                  u"ISOMETRIC"}));
    for (const View& view : views) {
        // Orthonormal and right-handed: the columns' cross product and determinant.
        const Matrix& m = view.matrix;
        const double determinant = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                                   m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                                   m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
        EXPECT_NEAR(determinant, 1.0, 1e-12);
        for (size_t a = 0; a < 3; ++a) {
            for (size_t b = 0; b < 3; ++b) {
                double dot = 0.0;
                for (size_t i = 0; i < 3; ++i) dot += m[i][a] * m[i][b];
                EXPECT_NEAR(dot, a == b ? 1.0 : 0.0, 1e-12);
            }
        }
    }
    // The top view looks down on the model: +Y comes towards the viewer.
    EXPECT_DOUBLE_EQ(views[2].matrix[1][2], 1.0);
    // The right view: +X comes towards the viewer.
    EXPECT_DOUBLE_EQ(views[5].matrix[0][2], 1.0);
}

}  // namespace
}  // namespace host::realmodel
