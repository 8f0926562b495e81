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

// Host codes `first` to `last` go to the numbers from `number` on.
struct CodeRun {
    int first;
    int last;
    int number;
};

// Host interface types: 1 to 5, 10 to 19, 22 to 27, 30 and 31 go to 0 to 22
// in that order, and 0 goes to the last number.
constexpr CodeRun intfTypeRuns[] = {{1, 5, 0}, {10, 19, 5}, {22, 27, 15}, {30, 31, 21}, {0, 0, 23}};
constexpr CodeRun componentTypeRuns[] = {{1, 13, 0}, {0, 0, 14}};
constexpr CodeRun paramValueTypeRuns[] = {{51, 53, 0}, {50, 50, 3}, {54, 54, 4}, {57, 58, 5}};
constexpr CodeRun plotPaperSizeRuns[] = {{0, 10, 0}, {100, 100, 11}, {99, 99, 12}};
// Host item types run up to above 17,000; the low run and the high codes
// are searched apart. 5 and 176 both give 1.
constexpr CodeRun itemTypeLowRuns[] = {{3, 3, 0}, {5, 5, 1}, {6, 6, 2}, {8, 8, 10}};
constexpr CodeRun itemTypeHighRuns[] = {{176, 176, 1}};

template <std::size_t Size>
bool findInRuns(const CodeRun (&runs)[Size], int code, int& number) {
    for (const CodeRun& run : runs) {
        if (code >= run.first && code <= run.last) {
            number = run.number + (code - run.first);
            return true;
        }
    }
    return false;
}

template <std::size_t Size>
int fromRuns(const CodeRun (&runs)[Size], int code, const char* method, const char* hostType) {
    int number = 0;
    if (!findInRuns(runs, code, number)) xthrow(new pfcXInvalidEnumValue(method, hostType, code));
    return number;
}

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

int pfcIntfTypeFromPro(int code, const char* method) { return fromRuns(intfTypeRuns, code, method, "ProIntfType"); }

int pfcComponentTypeFromPro(int code, const char* method) {
    return fromRuns(componentTypeRuns, code, method, "ProAsmcompType");
}

int pfcParamValueTypeFromPro(int code, const char* method) {
    return fromRuns(paramValueTypeRuns, code, method, "ProParamvalueType");
}

int pfcPlotPaperSizeFromPro(int code, const char* method) {
    return fromRuns(plotPaperSizeRuns, code, method, "ProPlotPaperSize");
}

int pfcModelItemTypeFromPro(int code, const char* method, bool raise) {
    int number = 0;
    const bool found =
        code < 100 ? findInRuns(itemTypeLowRuns, code, number) : findInRuns(itemTypeHighRuns, code, number);
    if (found) return number;
    if (raise) xthrow(new pfcXInvalidEnumValue(method, "ProType", code));
    return pfcModelItemTypeMiss;
}
