// Export of assemblies through the real plug-in in the headless host: the
// tree of groups, their transforms, and what the visibility rules and the
// representation leave out.
#include <gtest/gtest.h>

#include <functional>

#include "tests/exporthost/ExportScenario.h"

namespace exporttest {
namespace {

using namespace host::fixtures;
using scenereader::Block;


// A group of the tree as a line: its name, "*" for the assembly flags, and
// the count of objects directly or through inner material groups.
std::string describe(const Block& group) {
    std::string text = group.name();
    const scenereader::Statement* flags = group.statement("flags");
    if (flags && flags->numbers() == std::vector<double>{32768}) text += "*";
    size_t objects = 0;
    for (const Block* object : group.children("object")) objects += object != nullptr;
    for (const Block* inner : group.children("group"))
        if (inner->statement("flags") && inner->statement("flags")->numbers() == std::vector<double>{66560})
            objects += inner->children("object").size();
    if (objects) text += "(" + std::to_string(objects) + ")";
    return text;
}

// The groups below `block` in visit order, assembly groups opened with "[".
std::string tree(const Block& block) {
    std::string text;
    for (const Block* group : block.children("group")) {
        const scenereader::Statement* flags = group->statement("flags");
        if (flags && flags->numbers() == std::vector<double>{66560}) continue;
        if (!text.empty()) text += " ";
        text += describe(*group);
        if (describe(*group).find('*') != std::string::npos) text += "[" + tree(*group) + "]";
    }
    return text;
}

// The translation of a group's own transform, the last statement of it.
std::vector<double> transformOf(const Block& group) {
    const auto* statement = std::get_if<scenereader::Statement>(&group.items.back());
    if (!statement || statement->name != "transform") return {};
    return statement->numbers();
}

const Block* groupNamed(const Block& block, const std::string& name, size_t occurrence = 0) {
    for (const Block* group : block.children("group"))
        if (group->name() == name && occurrence-- == 0) return group;
    return nullptr;
}

TEST(AssemblyExport, TreeOfGroupsWithRelativeTransformsAndTheLeftOutSubtrees) {
    ExportScenario run;
    run.setSetting("includeNURBS", "false");
    host::Session& session = run.session;
    host::Model& bolt = session.addModel(part(u"bolt", 1));
    host::Model& hub = session.addModel(part(u"hub", 1));
    host::Model& nut = session.addModel(part(u"nut", 1));
    host::Model& cover = session.addModel(part(u"cover", 1));
    host::Model& shield = session.addModel(part(u"shield", 1));
    host::Model& wheel = session.addModel(assembly(u"wheel"));
    host::Matrix hubPlacement = rotationZ(90);
    hubPlacement[3] = {1, 0, 0, 1};
    addComponent(wheel, &hub, 31, hubPlacement);
    addComponent(wheel, &nut, 32).status = PRO_FEAT_SUPPRESSED;
    host::Model& frame = session.addModel(part(u"frame", 1));
    frame.type = PRO_MDL_ASSEMBLY;  // a sub-assembly with surfaces of its own
    addComponent(frame, &bolt, 21, translation(1, 0, 0));
    addComponent(frame, &bolt, 22, translation(2, 0, 0));
    host::Matrix wheelPlacement = rotationX(90);
    wheelPlacement[3] = {0, 5, 0, 1};
    addComponent(frame, &wheel, 23, wheelPlacement);
    host::Model& panel = session.addModel(assembly(u"panel"));
    addComponent(panel, &bolt, 41);
    host::Model& rig = session.addModel(assembly(u"rig"));
    addComponent(rig, &frame, 11, translation(0, 0, 10));
    addComponent(rig, &cover, 12, translation(7, 0, 0)).hidden = true;
    addComponent(rig, nullptr, 13);
    addComponent(rig, &shield, 14);
    addComponent(rig, &panel, 15).status = PRO_FEAT_SUPPRESSED;
    addLayer(rig, 1, u"HIDDEN_PARTS", PRO_LAYER_BLANK, {{PRO_LAYER_ITEM_FEATURE, 14}});
    run.openAndExport(rig, PRO_MODE_ASSEMBLY);

    scenereader::Document scene = run.readScene();
    const Block& model = topGroup(scene);
    EXPECT_EQ(tree(model), "frame*[bolt(1) bolt(1) wheel*[hub(1)]] frame(1) cover(1)")
        << "hidden components are sent; suppressed, unloaded and blanked ones are not, nor what lies below them; "
           "an assembly without surfaces of its own has no second group";
    const Block& frameGroup = *groupNamed(model, "frame");
    std::vector<double> boltTransform = transformOf(*groupNamed(frameGroup, "bolt", 1));
    ASSERT_EQ(boltTransform.size(), 16u);
    EXPECT_EQ(std::vector<double>(boltTransform.begin() + 12, boltTransform.end()), (std::vector<double>{2, 0, 0, 1}))
        << "relative to the sub-assembly, not to the top";
    std::vector<double> frameTransform = transformOf(frameGroup);
    EXPECT_EQ(std::vector<double>(frameTransform.begin() + 12, frameTransform.end()),
              (std::vector<double>{0, 0, 10, 1}));
    // A turned and moved part in a turned and moved sub-assembly: each group
    // holds its own placement, whole.
    const Block& wheelGroup = *groupNamed(frameGroup, "wheel");
    const std::pair<const Block*, std::vector<double>> placements[] = {
        {&wheelGroup, {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 5, 0, 1}},
        {groupNamed(wheelGroup, "hub"), {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, 0, 0, 1}}};
    for (const auto& [group, expected] : placements) {
        std::vector<double> actual = transformOf(*group);
        ASSERT_EQ(actual.size(), 16u) << group->name();
        for (size_t i = 0; i < 16; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-6) << group->name() << " at " << i;
    }
    EXPECT_EQ(transformOf(*groupNamed(model, "frame", 1)), frameTransform)
        << "the sub-assembly's own solid stands beside its group with the same transform";
    EXPECT_TRUE(run.session.errors().empty());
}

// An assembly with one part under each of the given component set-ups; answers
// the names of the part groups that came out, in order.
std::string exportedParts(const std::function<void(host::Session&, host::Model& top)>& build,
                          const std::map<std::string, std::string>& settings = {}) {
    ExportScenario run;
    run.setSetting("includeNURBS", "false");
    for (const auto& [element, text] : settings) run.setSetting(element, text);
    host::Model& top = run.session.addModel(assembly(u"top"));
    build(run.session, top);
    run.openAndExport(top, PRO_MODE_ASSEMBLY);
    EXPECT_EQ(run.session.arrays().outstanding("layers"), 0u) << "each component's array of layers is freed";
    return tree(topGroup(run.readScene()));
}

TEST(AssemblyExport, LayerDisplayStatuses) {
    std::string parts = exportedParts([](host::Session& session, host::Model& top) {
        const std::pair<std::u16string, int> layered[] = {
            {u"none", PRO_LAYER_NO_STATUS}, {u"normal", PRO_LAYER_NORMAL}, {u"shown", PRO_LAYER_DISPLAY},
            {u"blank", PRO_LAYER_BLANK},   {u"hidden", PRO_LAYER_HIDDEN}};
        int id = 10;
        for (const auto& [name, status] : layered) {
            host::Model& piece = session.addModel(part(name, 1));
            addComponent(top, &piece, id);
            addLayer(top, id, u"L" + name, status, {{PRO_LAYER_ITEM_FEATURE, id}});
            ++id;
        }
        host::Model& twice = session.addModel(part(u"twolayers", 1));
        addComponent(top, &twice, 20);
        addLayer(top, 20, u"NORMAL", PRO_LAYER_NORMAL, {{PRO_LAYER_ITEM_FEATURE, 20}});
        addLayer(top, 21, u"BLANK", PRO_LAYER_BLANK, {{PRO_LAYER_ITEM_FEATURE, 20}});
        host::Model& free = session.addModel(part(u"nolayer", 1));
        addComponent(top, &free, 30);
    });
    EXPECT_EQ(parts, "none(1) normal(1) nolayer(1)")
        << "only no status and the normal status pass; one blanked layer of two is enough to leave a component out";
}

TEST(AssemblyExport, ThreadsBackupAndHiddenQuiltsStayOut) {
    ExportScenario run;
    run.setSetting("includeNURBS", "false");
    host::Model& body = run.session.addModel(part(u"body", 1));
    host::Feature& thread = body.features.emplace_back(host::Feature{.id = 7, .type = PRO_FEAT_TYPE_THREAD});
    addSquare(body, {3, 0, 0}, thread.id);                        // a thread's surface
    addQuilt(body, 1);                                            // a visible quilt
    addQuilt(body, 1).backup = true;                              // a backup copy
    addQuilt(body, 1).hidden = true;                              // hidden in the model tree
    addQuilt(body, 1);
    body.features.back().type = PRO_FEAT_TYPE_THREAD;          // the quilt's own feature is a thread
    host::Model& top = run.session.addModel(assembly(u"top"));
    addComponent(top, &body, 10);
    run.openAndExport(top, PRO_MODE_ASSEMBLY);
    EXPECT_EQ(run.session.tessellationRequests().size(), 2u) << "the body's square and the visible quilt only";
    EXPECT_EQ(tree(topGroup(run.readScene())), "body(1)");
}

TEST(AssemblyExport, RepresentationActions) {
    auto build = [](int defaultAction) {
        return [defaultAction](host::Session& session, host::Model& top) {
            const char16_t* names[] = {u"excluded", u"inverted", u"other", u"plain"};
            for (int i = 0; i < 4; ++i) addComponent(top, &session.addModel(part(names[i], 1)), 10 + i);
            host::Representation& light = addRepresentation(top, 5, u"Light", defaultAction);
            light.items.push_back(representationItem({10}, 3));
            light.items.push_back(representationItem({11}, 1));
            light.items.push_back(representationItem({12}, 7));
        };
    };
    // The only representation is taken without asking; it isn't the master,
    // so its components are included through their items or the default.
    EXPECT_EQ(exportedParts(build(0)), "excluded inverted(1) other(1) plain");
    EXPECT_EQ(exportedParts(build(2)), "excluded inverted other(1) plain(1)")
        << "default action 2 includes all, action 1 inverts, 3 excludes, others include";
}

}  // namespace
}  // namespace exporttest
