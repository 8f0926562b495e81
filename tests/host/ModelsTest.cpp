#include <vector>

#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

TEST_F(HostOperations, CurrentModelNameTypeAndModeAnswerTheSession) {
    ProMdl current = nullptr;
    EXPECT_NE(host::shims::ProMdlCurrentGet(context, &current), PRO_TK_NO_ERROR);
    EXPECT_EQ(current, nullptr);
    host::Model& model = session().addModel(assembly(std::u16string(90, u'n')));
    session().setCurrentModel(&model);
    session().setMode(5);
    ASSERT_EQ(host::shims::ProMdlCurrentGet(context, &current), PRO_TK_NO_ERROR);
    EXPECT_EQ(current, handle(model));
    ProMdlName name;
    host::shims::ProMdlNameGet(context, current, name);
    EXPECT_EQ(std::u16string(name), std::u16string(80, u'n'));
    int type = 0, mode = 0;
    host::shims::ProMdlTypeGet(context, current, &type);
    host::shims::ProModeCurrentGet(context, &mode);
    EXPECT_EQ(type, PRO_MDL_ASSEMBLY);
    EXPECT_EQ(mode, 5);
    ProModelitem item{};
    host::shims::ProMdlToModelitem(context, current, &item);
    EXPECT_EQ(item.type, PRO_MDL_ASSEMBLY);
    EXPECT_EQ(item.id, PRO_MODEL_ITEM_ID);
    EXPECT_EQ(item.owner, current);
    host::Model stranger;
    EXPECT_EQ(host::shims::ProMdlTypeGet(context, handle(stranger), &type), PRO_TK_BAD_INPUTS);
}

TEST_F(HostOperations, TheLengthUnitIsNamedAndConvertedToMetres) {
    host::Model& model = session().addModel(part(u"p"));
    model.lengthUnit = u"in";
    ProUnitsystem system{};
    ProUnititem unit{};
    ProUnitConversion conversion{};
    ASSERT_EQ(host::shims::ProMdlPrincipalunitsystemGet(context, handle(model), &system), PRO_TK_NO_ERROR);
    ASSERT_EQ(host::shims::ProUnitsystemUnitGet(context, &system, 0, &unit), PRO_TK_NO_ERROR);
    EXPECT_EQ(std::u16string(unit.name), u"in");
    ASSERT_EQ(host::shims::ProUnitConversionGet(context, &unit, &conversion, nullptr), PRO_TK_NO_ERROR);
    EXPECT_DOUBLE_EQ(conversion.scale, 0.0254);
    EXPECT_NE(host::shims::ProUnitsystemUnitGet(context, &system, 1, &unit), PRO_TK_NO_ERROR);
    model.lengthUnit = u"MM";
    host::shims::ProUnitsystemUnitGet(context, &system, 0, &unit);
    EXPECT_NE(host::shims::ProUnitConversionGet(context, &unit, &conversion, nullptr), PRO_TK_NO_ERROR);
}

TEST_F(HostOperations, VersionStampsChangeWithAModificationAndDifferBetweenModels) {
    host::Model& first = session().addModel(part(u"same"));
    host::Model& second = session().addModel(part(u"same"));
    auto stamp = [&](host::Model& model) {
        ProMdlVerstamp taken{};
        EXPECT_EQ(host::shims::ProMdlVerstampGet(context, handle(model), &taken), PRO_TK_NO_ERROR);
        return taken;
    };
    ProMdlVerstamp before = stamp(first);
    EXPECT_EQ(host::shims::ProVerstampEqual(context, before, stamp(first)), PRO_B_TRUE);
    EXPECT_EQ(host::shims::ProVerstampEqual(context, before, stamp(second)), PRO_B_FALSE);
    first.modify();
    EXPECT_EQ(host::shims::ProVerstampEqual(context, before, stamp(first)), PRO_B_FALSE);
    session().faults().add({"ProMdlVerstampGet", 0, handle(first)});
    ProMdlVerstamp failed{};
    EXPECT_NE(host::shims::ProMdlVerstampGet(context, handle(first), &failed), PRO_TK_NO_ERROR);
    EXPECT_EQ(host::shims::ProMdlVerstampGet(context, handle(second), &failed), PRO_TK_NO_ERROR);
}

TEST_F(HostOperations, ViewsGiveNamesInOrderAndTheirMatrices) {
    host::Model& model = session().addModel(part(u"p"));
    model.currentView = translation(1, 2, 3);
    addView(model, u"FRONT", rotationZ(90));
    addView(model, std::u16string(85, u'v'), translation(7, 0, 0));
    ProLine* names = nullptr;
    int count = 0;
    ASSERT_EQ(host::shims::ProViewNamesGet(context, handle(model), &names, nullptr, &count), PRO_TK_NO_ERROR);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(std::u16string(names[0]), u"FRONT");
    EXPECT_EQ(std::u16string(names[1]), std::u16string(80, u'v'));
    ProView view = nullptr;
    ProMatrix matrix{};
    ASSERT_EQ(host::shims::ProViewNameToView(context, handle(model), names[1], &view), PRO_TK_NO_ERROR);
    host::shims::ProViewMatrixGet(context, handle(model), view, matrix);
    EXPECT_EQ(matrix[3][0], 7.0);
    host::shims::ProViewMatrixGet(context, handle(model), nullptr, matrix);
    EXPECT_EQ(matrix[3][2], 3.0);
    EXPECT_EQ(host::shims::ProViewNameToView(context, handle(model), u"front", &view), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(session().arrays().outstanding("view names"), 1u);
}

}  // namespace
