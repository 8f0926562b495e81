// The object layer, the nodes and the live factory's stand-in.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "importers/sceneapi/LightCamera.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/LightNode.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "tests/sceneapi/SceneCapture.h"

namespace {

using scenetest::golden;
using scenetest::spelledGolden;
using scenetest::SceneCapture;

const std::string BANNER = "#print \"Vantrel SceneApi oo 7.0.219  (built Mon Feb 27 10:39:17 2017)\"\nversion 7\n\n";

// Hands out a given scene and notes whether it was begun.
class FixedFactory : public nvx::LightFactory {
public:
    explicit FixedFactory(nvxScene_api* scene) : fixed(scene) {}
    nvxScene_api* scene() override { return fixed; }
    void begin(nvx::nvxSceneapi_oo&) override { ++begun; }
    void close() override {}

    nvxScene_api* fixed;
    int begun = 0;
};

// A layer on a captured writer, with the opening banner already checked.
struct LayerOnCapture {
    explicit LayerOnCapture(bool binary = true) : out(binary), factory(&out.scene()), layer(factory) {
        EXPECT_EQ(out.text(), BANNER);
        EXPECT_EQ(factory.begun, 1);
    }
    std::string textAfterBanner() { return out.text().substr(BANNER.size()); }

    SceneCapture out;
    FixedFactory factory;
    nvx::nvxSceneapi_oo layer;
};

TEST(ObjectLayer, NullSceneSendsNothingAndIsNotBegun) {
    FixedFactory factory(nullptr);
    nvx::nvxSceneapi_oo layer(factory);
    EXPECT_EQ(layer.scene(), nullptr);
    EXPECT_EQ(factory.begun, 0);
}

TEST(ObjectLayer, CountersStartAtOneAndAreIndependent) {
    LayerOnCapture scene;
    EXPECT_EQ(scene.layer.next_id(), 1);
    EXPECT_EQ(scene.layer.define_shader("nvx_diffuse"), 1);
    scene.layer.end_shader();
    EXPECT_EQ(scene.layer.next_id(), 2);
    EXPECT_EQ(scene.textAfterBanner(), "id 1\n#define shader 1 nvx_diffuse {\n}\nid 2\n");
    scene.layer.set_scene(&scene.out.scene());
    EXPECT_EQ(scene.layer.next_id(), 1);
    EXPECT_EQ(scene.layer.define_shader("s"), 1);
}

TEST(ObjectLayer, TypedSetters) {
    LayerOnCapture scene;
    nvx::nvxSceneapi_oo& layer = scene.layer;
    const float f3[3] = {1, 2, 3};
    const double d3[3] = {0.5, 1, 2};
    layer.begin_group("g");
    layer.set_attribute("s", std::string("text"));
    layer.set_attribute("f3", f3);
    layer.set_attribute("d3", d3);
    layer.set_attribute("d", 0.5);
    layer.set_attribute("f", 0.5f);
    layer.set_attribute("i", 3);
    layer.set_attribute("b", true);
    layer.set_attribute("ints", std::vector<int>{});
    layer.set_attribute("floats", std::vector<float>{0.5f});
    layer.set_attribute("doubles", std::vector<double>{});
    layer.set_attribute("triples", std::vector<nvx::Float3>{{1, 2, 3}});
    layer.set_attribute("matrices", std::vector<nvx::Matrix>{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}});
    layer.progress("step", 0.25f);
    layer.set_flags(32768);
    layer.end_group();
    try {
        layer.set_attribute("p", "pointer");
        ADD_FAILURE() << "a character pointer was accepted";
    } catch (const std::invalid_argument& refused) {
        EXPECT_STREQ(refused.what(), "const char * are deprecated");
    }
    EXPECT_EQ(scene.textAfterBanner(), spelledGolden("typed_setters.txt"));
}

TEST(ObjectLayer, TransformsRelativeUnlessAbsolute) {
    LayerOnCapture scene;
    const double m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1};
    scene.layer.apply_transform(m);
    scene.layer.apply_transform(m, false);
    scene.layer.apply_transform(m, true);
    const std::string values = " 1 0 0 0 0 1 0 0 0 0 1 0 5 6 7 1\n";
    EXPECT_EQ(scene.textAfterBanner(), "transform" + values + "transform" + values + "set transform" + values);
}

// A default camera with its environment, then the optional parts and the projections.
TEST(LightCamera, DefaultsOptionalPartsAndProjections) {
    LayerOnCapture scene;
    nvx::LightCamera byDefault("view");
    scene.layer.add(byDefault);
    nvx::LightCamera camera("c");
    camera.has_look_at = true;
    camera.near_clip = 1;
    camera.far_clip = 100;
    camera.fov_kind = nvx::LightCamera::FOV_FOUR_ANGLES;
    camera.fov4 = {1, 2, 3, 4};
    const double m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1};
    camera.set_matrix(m);
    scene.layer.add(camera);

    nvx::LightCamera flat("o");
    flat.set_projection(nvx::LightCamera::ORTHOGRAPHIC);
    flat.near_clip = 5;
    flat.far_clip = 5;
    flat.transform_node = std::make_shared<nvx::LightCamera>("inner");
    scene.layer.add(flat);

    nvx::LightCamera odd("x");
    odd.set_projection(2);
    scene.layer.add(odd);

    // The inner camera is refused while the outer is open: its lines land in
    // the outer block, and its end closes it.
    EXPECT_EQ(scene.textAfterBanner(), golden("cameras.txt"));
}

}  // namespace
