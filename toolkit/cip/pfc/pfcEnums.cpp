#include "toolkit/cip/pfc/pfcEnums.h"

#include <string>

#include "toolkit/ProConstants.h"
#include "toolkit/cip/pfc/pfcExceptions.h"

namespace {

struct EnumCode {
    int value;
    int hostCode;
};

// Model types: host codes 7 and 11 both give the 2D section, which goes back
// only as 11, so the table's first entry of a value is the way back.
constexpr EnumCode modelTypeCodes[] = {
    {pfcMDL_ASSEMBLY, 1}, {pfcMDL_PART, 2},         {pfcMDL_DRAWING, 4},    {pfcMDL_2D_SECTION, 11},
    {pfcMDL_LAYOUT, 19},  {pfcMDL_DWG_FORMAT, 33},  {pfcMDL_MFG, 37},       {pfcMDL_REPORT, 105},
    {pfcMDL_MARKUP, 116}, {pfcMDL_DIAGRAM, 121},    {pfcMDL_UNSPECIFIED, -1}, {pfcMDL_2D_SECTION, 7},
};

constexpr EnumCode textureTypeCodes[] = {
    {wfcBUMP_TEXTURE, PRO_TEXTURE_TYPE_BUMP},
    {wfcCOLOR_TEXTURE, PRO_TEXTURE_TYPE_COLOR},
    {wfcDECAL_TEXTURE, PRO_TEXTURE_TYPE_DECAL},
    {wfcNULL_TEXTURE, PRO_TEXTURE_TYPE_NONE},
};

template <std::size_t Size>
int toPro(const EnumCode (&table)[Size], int value, const char* enumName, const char* routine) {
    for (const EnumCode& entry : table)
        if (entry.value == value) return entry.hostCode;
    xthrow(new pfcXInAMethod(routine, xstring((std::string("Unknown ") + enumName).c_str())));
}

template <std::size_t Size>
int fromPro(const EnumCode (&table)[Size], int code, const char* method, const char* hostType) {
    for (const EnumCode& entry : table)
        if (entry.hostCode == code) return entry.value;
    xthrow(new pfcXInvalidEnumValue(method, hostType, code));
}

}  // namespace

xrttienum* pfcModelType_xrttiGet() {
    static xrttienum* description = nullptr;
    return xrttiDescribeEnum(description, "pfcModel::ModelType",
                             {"pfcMDL_ASSEMBLY", "pfcMDL_PART", "pfcMDL_DRAWING", "pfcMDL_2D_SECTION", "pfcMDL_LAYOUT",
                              "pfcMDL_DWG_FORMAT", "pfcMDL_MFG", "pfcMDL_REPORT", "pfcMDL_MARKUP", "pfcMDL_DIAGRAM",
                              "pfcMDL_UNSPECIFIED"});
}

xrttienum* wfcTextureType_xrttiGet() {
    static xrttienum* description = nullptr;
    return xrttiDescribeEnum(description, "wfcAppearance::TextureType",
                             {"wfcBUMP_TEXTURE", "wfcCOLOR_TEXTURE", "wfcDECAL_TEXTURE", "wfcNULL_TEXTURE"});
}

int pfcModelTypeToPro(pfcModelType value) {
    return toPro(modelTypeCodes, value, "pfcModelType", "pfcModelTypeToPro");
}

pfcModelType pfcModelTypeFromPro(int code, const char* method) {
    return static_cast<pfcModelType>(fromPro(modelTypeCodes, code, method, "ProMdlType"));
}

int wfcTextureTypeToPro(wfcTextureType value) {
    return toPro(textureTypeCodes, value, "wfcTextureType", "wfcTextureTypeToPro");
}

wfcTextureType wfcTextureTypeFromPro(int code, const char* method) {
    return static_cast<wfcTextureType>(fromPro(textureTypeCodes, code, method, "ProTextureType"));
}
