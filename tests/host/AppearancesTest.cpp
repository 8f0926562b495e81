#include <tuple>

#include "tests/host/HostOperationsTest.h"
#include "tests/host/PluginFolder.h"

namespace {

using namespace host::fixtures;

std::u16string nameOf(const AppearanceProps& props) { return props.name; }

class Appearances : public HostOperations {
protected:
    Appearances() : model(session().addModel(part(u"p", 2))) {
        model.surfaces[0].appearance = appearance(u"steel", {0.2, 0.3, 0.4}, 0.8);
        model.surfaces[0].texture = texture("wood.png");
    }

    ProModelitem surfaceItem(size_t index) {
        ProModelitem item{};
        host::shims::ProSurfaceToGeomitem(context, handle(model), handle(model.surfaces[index]), &item);
        return item;
    }
    ProModelitem modelItem() {
        ProModelitem item{};
        host::shims::ProMdlToModelitem(context, handle(model), &item);
        return item;
    }

    host::Model& model;
    AppearanceProps props{};
    TextureProps textureProps{};
};

TEST_F(Appearances, SurfaceItemsAnswerTheirRecordOrOneWithAnEmptyName) {
    ProModelitem own = surfaceItem(0);
    ASSERT_EQ(host::shims::ProSurfaceAppearancepropsGet(context, &own, &props), PRO_TK_NO_ERROR);
    EXPECT_EQ(nameOf(props), u"steel");
    EXPECT_EQ(props.diffuse, 0.8);
    EXPECT_EQ(props.color[2], 0.4);
    ProModelitem bare = surfaceItem(1);
    props.name[0] = u'x';
    ASSERT_EQ(host::shims::ProSurfaceAppearancepropsGet(context, &bare, &props), PRO_TK_NO_ERROR);
    EXPECT_EQ(nameOf(props), u"");
    // Textures: a surface without one fails.
    EXPECT_EQ(host::shims::ProSurfaceTexturepropsGet(context, &own, &textureProps), PRO_TK_NO_ERROR);
    EXPECT_STREQ(textureProps.color, "wood.png");
    EXPECT_NE(host::shims::ProSurfaceTexturepropsGet(context, &bare, &textureProps), PRO_TK_NO_ERROR);
    // Quilt surfaces are found through the same item.
    host::Surface& quiltSurface = addQuilt(model, 1).surfaces[0];
    quiltSurface.appearance = appearance(u"glass", {0.9, 0.9, 1.0});
    ProModelitem inQuilt{PRO_ITEM_SURFACE, quiltSurface.id, handle(model)};
    ASSERT_EQ(host::shims::ProSurfaceAppearancepropsGet(context, &inQuilt, &props), PRO_TK_NO_ERROR);
    EXPECT_EQ(nameOf(props), u"glass");
    ProModelitem unknown{PRO_ITEM_SURFACE, 999, handle(model)};
    EXPECT_NE(host::shims::ProSurfaceAppearancepropsGet(context, &unknown, &props), PRO_TK_NO_ERROR);
}

TEST_F(Appearances, ModelItemsAnswerTheModelsRecordOrFail) {
    ProModelitem item = modelItem();
    EXPECT_EQ(item.type, PRO_MDL_PART);
    EXPECT_NE(host::shims::ProSurfaceAppearancepropsGet(context, &item, &props), PRO_TK_NO_ERROR);
    EXPECT_NE(host::shims::ProSurfaceTexturepropsGet(context, &item, &textureProps), PRO_TK_NO_ERROR);
    model.appearance = appearance(u"paint", {1.0, 0.0, 0.0}, 1.0, u"Red paint");
    model.texture = texture("red.png", "decal.png");
    ASSERT_EQ(host::shims::ProSurfaceAppearancepropsGet(context, &item, &props), PRO_TK_NO_ERROR);
    EXPECT_EQ(nameOf(props), u"paint");
    EXPECT_EQ(std::u16string(props.label), u"Red paint");
    ASSERT_EQ(host::shims::ProSurfaceTexturepropsGet(context, &item, &textureProps), PRO_TK_NO_ERROR);
    EXPECT_STREQ(textureProps.decal, "decal.png");
}

TEST_F(Appearances, TheNullItemAnswersTheSessionsDefaultOrFails) {
    EXPECT_NE(host::shims::ProSurfaceAppearancepropsGet(context, nullptr, &props), PRO_TK_NO_ERROR);
    EXPECT_NE(host::shims::ProSurfaceTexturepropsGet(context, nullptr, &textureProps), PRO_TK_NO_ERROR);
    session().setDefaultAppearance(appearance(u"default", {0.5, 0.5, 0.5}));
    session().setDefaultTexture(texture("grid.png"));
    ASSERT_EQ(host::shims::ProSurfaceAppearancepropsGet(context, nullptr, &props), PRO_TK_NO_ERROR);
    EXPECT_EQ(nameOf(props), u"default");
    ASSERT_EQ(host::shims::ProSurfaceTexturepropsGet(context, nullptr, &textureProps), PRO_TK_NO_ERROR);
    EXPECT_STREQ(textureProps.color, "grid.png");
}

class TexturePaths : public HostOperations {
protected:
    TexturePaths() {
        for (const char* file : {"first/a.png", "second/a.png", "second/b.png"}) folder.write(file, "image");
        session().setTextureSearchPath({folder.root() / "missing", folder.root() / "first", folder.root() / "second"});
    }

    // The status, the path found and the flag.
    std::tuple<ProError, std::u16string, int> find(const std::u16string& name) {
        ProPath path;
        std::fill(std::begin(path), std::end(path), u'~');
        int flag = -1;
        ProError status = host::shims::ProTexturePathGet(context, name.c_str(), 1, &flag, path);
        return {status, path, flag};
    }
    std::u16string under(const char* relative) { return (folder.root() / relative).make_preferred().u16string(); }

    PluginFolder folder;
};

TEST_F(TexturePaths, BareNamesAreLookedForInEachFolderInOrder) {
    EXPECT_EQ(find(u"a.png"), std::make_tuple(PRO_TK_NO_ERROR, under("first/a.png"), 1));
    EXPECT_EQ(find(u"b.png"), std::make_tuple(PRO_TK_NO_ERROR, under("second/b.png"), 1));
    EXPECT_EQ(find(under("second/a.png")), std::make_tuple(PRO_TK_NO_ERROR, under("second/a.png"), 1));
    auto [status, path, flag] = find(u"c.png");
    EXPECT_NE(status, PRO_TK_NO_ERROR);
    EXPECT_EQ(path, u"");
    EXPECT_EQ(flag, 0);
    EXPECT_NE(std::get<0>(find(under("first/b.png"))), PRO_TK_NO_ERROR) << "an absolute path is not searched";
    EXPECT_NE(std::get<0>(find(u"")), PRO_TK_NO_ERROR);
}

}  // namespace
