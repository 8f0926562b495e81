// The object toolkit's base: reference counts, handles and checked casts, the
// containers' index exceptions, the type registry, the status check and the
// enumeration conversions.
#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>

#include "toolkit/cip/cipstd/services/xsequence.h"
#include "toolkit/cip/pfc/pfcEnums.h"
#include "toolkit/cip/pfc/pfcExceptions.h"
#include "toolkit/cip/pfc/pfcObjects.h"

namespace {

std::string nameOf(const xrtti* description) { return static_cast<const char*>(description->GetName()); }

// Runs `body` and answers the type name of the toolkit exception it raised.
template <typename Body>
std::string raisedType(Body body, xrchandle<xthrowable>* raised = nullptr) {
    try {
        body();
    } catch (const xexception& thrown) {
        if (raised) *raised = thrown.handle();
        return nameOf(thrown.handle()->xgetrtti());
    }
    return "nothing";
}

class Counted : public virtual xobject {
    XOBJECT_DECLARE()
};
XOBJECT_DEFINE(Counted, "test::Counted", xobject)

class Uncounted : public virtual xobject {
public:
    static xrttiobject* xrttiGet() {
        static xrttiobject* description = nullptr;
        return xrttiDescribe<xobject>(description, "test::Uncounted", false);
    }
    xrttiobject* xgetrtti() const override { return xrttiGet(); }
};

TEST(XObject, CountsFromZeroAndDeletesAtTheLastRelease) {
    auto* object = new Counted();
    const xobject* counts = object;
    EXPECT_EQ(counts->xrefcount(), 0);
    {
        xrchandle<Counted> first(object);
        xrchandle<Counted> second(first);
        EXPECT_EQ(counts->xrefcount(), 2);
    }
    Uncounted plain;
    plain.xattach();
    EXPECT_EQ(plain.xrefcount(), -1);
    plain.xrelease();
    EXPECT_EQ(plain.xrefcount(), -1);
    xrchandle<Counted> counted(new Counted());
    EXPECT_EQ(raisedType([&] { counted->xdelete(); }), "ciplib::XRefCountable");
}

TEST(XObjectDeathTest, ReleaseAtCountZeroEndsTheProcess) {
    Counted object;
    EXPECT_EXIT(object.xrelease(), testing::ExitedWithCode(1), "xrcrelease: Invalid value of refcount.");
}

TEST(XObject, CheckedCastRaisesWithTheCountBackWhereItWas) {
    ProAsmcomppath path{};
    path.ownerModel = reinterpret_cast<ProMdl>(0x1000);
    xrchandle<xobject> object = wfcGetObjectFromHandle(wfcHANDLE_COMPONENTPATH, &path);
    int before = object->xrefcount();
    xrchandle<xthrowable> raised;
    EXPECT_EQ(raisedType([&] { xcheckedcast<pfcSurface>(object); }, &raised), "ciplib::XTypeMismatch");
    EXPECT_EQ(std::string(static_cast<const char*>(dynamic_cast<cipXTypeMismatch&>(*raised).GetTypeName())),
              "pfcGeometry::Surface");
    EXPECT_EQ(object->xrefcount(), before);
    xrchandle<pfcComponentPath> seen = xcheckedcast<pfcComponentPath>(object);
    EXPECT_EQ(object->xrefcount(), before + 1);
    EXPECT_EQ(seen->GetRoot()->GetHandle(), path.ownerModel);
}

TEST(XObject, NullAndNilPassThroughACast) {
    EXPECT_TRUE(xcheckedcast<pfcSurface>(xrchandle<xobject>()).isNull());
    EXPECT_TRUE(xcheckedcast<pfcSurface>(xrchandle<xobject>::nil()).isNil());
}

TEST(XObject, CastsCrossVirtualBases) {
    ProModelitem item{PRO_ITEM_FEATURE, 4, reinterpret_cast<ProMdl>(0x2000)};
    xrchandle<xobject> object = wfcGetObjectFromHandle(wfcHANDLE_MODELITEM, &item);
    xrchandle<pfcModelItem> modelItem = xcheckedcast<pfcModelItem>(object);
    EXPECT_EQ(modelItem->GetItem().id, 4);
    EXPECT_EQ(raisedType([&] { xcheckedcast<pfcSurface>(object); }), "ciplib::XTypeMismatch");
    EXPECT_EQ(raisedType([&] { wfcGetObjectFromHandle(2, &item); }), "pfcExceptions::XBadArgument");
}

TEST(XSequence, IndexesOutsideRaise) {
    xtcsequence<xstring> names;
    names.append(xstring("a"));
    names.append(xstring("c"));
    names.insert(1, xstring("b"));
    struct Case {
        int index;
        const char* raised;
    };
    for (Case c : {Case{-1, "ciplib::XNegativeIndex"}, Case{3, "ciplib::XInvalidSeqIndex"},
                   Case{2, "nothing"}}) {
        EXPECT_EQ(raisedType([&] { names.get(c.index); }), c.raised) << c.index;
    }
    EXPECT_STREQ(static_cast<const char*>(names.get(1)), "b");
    names.remove(0, 2);
    EXPECT_EQ(names.getarraysize(), 1);
    xtarray1<double, 3> point;
    xtarray2<double, 4, 4> matrix;
    for (int index : {-1, 3}) EXPECT_EQ(raisedType([&] { point.get(index); }), "ciplib::XInvalidArrayIndex");
    EXPECT_EQ(raisedType([&] { matrix.set(0, 4, 1.0); }), "ciplib::XInvalidArrayIndex");
}

TEST(XSequence, HoldsHandlesAttached) {
    auto* texture = new wfcTexture(wfcCOLOR_TEXTURE, xstring("a.png"));
    {
        wfcTextures textures;
        textures.append(texture);
        EXPECT_EQ(texture->xrefcount(), 1);
        xrchandle<wfcTexture> read = textures.get(0);
        EXPECT_EQ(texture->xrefcount(), 2);
    }
}


TEST(XRtti, DescriptionsAreMadeOnceAndFoundByName) {
    EXPECT_EQ(xrttiFind("test::NeverDescribed"), nullptr);
    EXPECT_EQ(xrttiFind("test::NeverDescribed"), nullptr);
    xrttiobject* surface = pfcSurface::xrttiGet();
    EXPECT_EQ(surface, pfcSurface::xrttiGet());
    EXPECT_EQ(xrttiFind("pfcGeometry::Surface"), surface);
    ASSERT_EQ(surface->GetBaseCount(), 1);
    EXPECT_EQ(nameOf(surface->GetBase(0)), "pfcModelItem::ModelItem");
    xrttiobject twin("pfcGeometry::Surface", true, {});
    EXPECT_TRUE(twin.IsSame(surface));
    EXPECT_TRUE(surface->IsAssignable(&twin));
    EXPECT_TRUE(surface->IsAssignable(xrttibasic::any()));
    EXPECT_FALSE(surface->IsAssignable(pfcModel::xrttiGet()));
    EXPECT_EQ(Counted::xrttiGet()->GetBase(0), xobject::xrttiGet());
}

TEST(XRtti, AttributeMapIsMadeByTheFirstAttribute) {
    xrttiobject description("test::WithAttributes", true, {});
    EXPECT_FALSE(description.HasAttributeMap());
    EXPECT_EQ(description.GetAttribute("Geometry"), nullptr);
    xrttiattr first("Geometry", xrttibasic::any(), false), second("Geometry", xrttibasic::any(), true);
    description.AddAttribute("Geometry", &first);
    description.AddAttribute("Geometry", &second);
    EXPECT_TRUE(description.HasAttributeMap());
    EXPECT_EQ(description.GetAttribute("Geometry"), &second);
}

TEST(XRtti, AGetterFindingAnotherKindRaises) {
    static xrttiobject otherKind("test::Kind", true, {});
    xrttiRegister(&otherKind);
    xrttienum* slot = nullptr;
    EXPECT_EQ(raisedType([&] { xrttiDescribeEnum(slot, "test::Kind", {"A"}); }), "ciplib::XTypeMismatch");
}

TEST(ToolkitStatus, EachCodeRaisesItsClass) {
    struct Case {
        int status;
        const char* raised;
    };
    const Case cases[] = {
        {0, "nothing"},
        {-1, "pfcExceptions::XToolkitGeneralError"},
        {-23, "pfcExceptions::XToolkitNotExist"},
        {-56, "pfcExceptions::XToolkitRegenerateAgain"},
        {-57, "pfcExceptions::XToolkitUnrecognizedErrorCode"},
        {-70, "pfcExceptions::XToolkitUnrecognizedErrorCode"},
        {-98, "pfcExceptions::XToolkitAppNewVersion"},
        {-99, "pfcExceptions::XToolkitUnrecognizedErrorCode"},
        {3, "pfcExceptions::XToolkitUnrecognizedErrorCode"},
    };
    for (const Case& c : cases) {
        xrchandle<xthrowable> raised;
        EXPECT_EQ(raisedType([&] { checkToolkitStatus(c.status, "ProThingGet", "pfcThing::Get"); }, &raised),
                  c.raised)
            << c.status;
        if (!raised) continue;
        auto& error = dynamic_cast<pfcXToolkitError&>(*raised);
        EXPECT_EQ(error.GetErrorCode(), c.status);
        EXPECT_STREQ(static_cast<const char*>(error.GetToolkitFunctionName()), "ProThingGet");
        EXPECT_STREQ(static_cast<const char*>(error.GetMethodName()), "pfcThing::Get");
    }
}

TEST(ToolkitStatus, ExceptionsAreStdExceptionsThatNameTheFailure) {
    try {
        checkToolkitStatus(-70, "ProThingGet", "pfcThing::Get");
        FAIL() << "no exception";
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(),
                     "pfcExceptions::XToolkitUnrecognizedErrorCode (in pfcThing::Get, ProThingGet -70)");
    }
}

TEST(EnumConversion, ModelTypes) {
    struct Case {
        pfcModelType value;
        int hostCode;
    };
    for (Case c : {Case{pfcMDL_ASSEMBLY, 1}, Case{pfcMDL_2D_SECTION, 11}, Case{pfcMDL_DIAGRAM, 121},
                   Case{pfcMDL_UNSPECIFIED, -1}}) {
        EXPECT_EQ(pfcModelTypeToPro(c.value), c.hostCode);
        EXPECT_EQ(pfcModelTypeFromPro(c.hostCode, "m"), c.value);
    }
    EXPECT_EQ(pfcModelTypeToPro(pfcModelTypeFromPro(7, "m")), 11);
    xrchandle<xthrowable> raised;
    EXPECT_EQ(raisedType([] { pfcModelTypeToPro(static_cast<pfcModelType>(11)); }, &raised),
              "pfcExceptions::XInAMethod");
    EXPECT_STREQ(static_cast<const char*>(raised->GetMessage()), "Unknown pfcModelType");
    EXPECT_EQ(raisedType([] { pfcModelTypeFromPro(3, "pfcSession::GetModel"); }, &raised),
              "pfcExceptions::XInvalidEnumValue");
    auto& invalid = dynamic_cast<pfcXInvalidEnumValue&>(*raised);
    EXPECT_STREQ(static_cast<const char*>(invalid.GetTypeName()), "ProMdlType");
    EXPECT_EQ(invalid.GetValue(), 3);
    EXPECT_STREQ(static_cast<const char*>(invalid.GetMethodName()), "pfcSession::GetModel");
    // The keyed routines: {routine, host code, number}, worked out from the runs of each.
    struct Keyed {
        int (*routine)(int, const char*);
        int code;
        int number;
    };
    for (Keyed k : {Keyed{pfcIntfTypeFromPro, 1, 0}, Keyed{pfcIntfTypeFromPro, 10, 5}, Keyed{pfcIntfTypeFromPro, 27, 20},
                    Keyed{pfcIntfTypeFromPro, 31, 22}, Keyed{pfcIntfTypeFromPro, 0, 23},
                    Keyed{pfcComponentTypeFromPro, 0, 14}, Keyed{pfcComponentTypeFromPro, 13, 12},
                    Keyed{pfcParamValueTypeFromPro, 50, 3}, Keyed{pfcParamValueTypeFromPro, 53, 2},
                    Keyed{pfcParamValueTypeFromPro, 58, 6}, Keyed{pfcPlotPaperSizeFromPro, 10, 10},
                    Keyed{pfcPlotPaperSizeFromPro, 99, 12}, Keyed{pfcPlotPaperSizeFromPro, 100, 11}})
        EXPECT_EQ(k.routine(k.code, "m"), k.number) << k.code;
    for (Keyed miss : {Keyed{pfcIntfTypeFromPro, 6, 0}, Keyed{pfcComponentTypeFromPro, 14, 0},
                       Keyed{pfcParamValueTypeFromPro, 55, 0}, Keyed{pfcPlotPaperSizeFromPro, 11, 0}})
        EXPECT_EQ(raisedType([&] { miss.routine(miss.code, "m"); }), "pfcExceptions::XInvalidEnumValue")
            << miss.code;
    EXPECT_EQ(pfcModelItemTypeFromPro(176, "m", true) + pfcModelItemTypeFromPro(5, "m", true), 2);
    EXPECT_EQ(pfcModelItemTypeFromPro(8, "m", false), 10);
    EXPECT_EQ(pfcModelItemTypeFromPro(17000, "m", false), pfcModelItemTypeMiss);
    EXPECT_EQ(raisedType([] { pfcModelItemTypeFromPro(4, "m", true); }), "pfcExceptions::XInvalidEnumValue");

    xrttienum* types = pfcModelType_xrttiGet();
    EXPECT_EQ(types->GetValueCount(), 11);
    EXPECT_STREQ(types->GetValueName(pfcMDL_2D_SECTION), "pfcMDL_2D_SECTION");
}

}  // namespace
