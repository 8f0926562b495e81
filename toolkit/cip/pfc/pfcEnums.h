#pragma once
// Conversions between the object toolkit's enumerations, numbered densely
// from 0, and the host's sparse codes. "ToPro" raises pfcXInAMethod with
// "Unknown " and the enumeration's name for a value outside the list; the
// "FromPro" direction raises pfcXInvalidEnumValue with the caller's method,
// the host type's name and the code.
#include "toolkit/cip/cipstd/services/xrtti.h"

enum pfcModelType {
    pfcMDL_ASSEMBLY,
    pfcMDL_PART,
    pfcMDL_DRAWING,
    pfcMDL_2D_SECTION,
    pfcMDL_LAYOUT,
    pfcMDL_DWG_FORMAT,
    pfcMDL_MFG,
    pfcMDL_REPORT,
    pfcMDL_MARKUP,
    pfcMDL_DIAGRAM,
    pfcMDL_UNSPECIFIED,
};

enum wfcTextureType {
    wfcBUMP_TEXTURE,
    wfcCOLOR_TEXTURE,
    wfcDECAL_TEXTURE,
    wfcNULL_TEXTURE,
};

xrttienum* pfcModelType_xrttiGet();
xrttienum* wfcTextureType_xrttiGet();

int pfcModelTypeToPro(pfcModelType value);
pfcModelType pfcModelTypeFromPro(int code, const char* method);  // keyed ProMdlType

int wfcTextureTypeToPro(wfcTextureType value);
wfcTextureType wfcTextureTypeFromPro(int code, const char* method);  // keyed ProTextureType

// Host-to-object conversions keyed by the host type, answering the dense
// number of the object toolkit's value. Each is a list of runs of host codes
// onto consecutive numbers.
int pfcIntfTypeFromPro(int code, const char* method);        // keyed ProIntfType
int pfcComponentTypeFromPro(int code, const char* method);   // keyed ProAsmcompType
int pfcParamValueTypeFromPro(int code, const char* method);  // keyed ProParamvalueType
int pfcPlotPaperSizeFromPro(int code, const char* method);   // keyed ProPlotPaperSize

// Keyed ProType, where a miss may be allowed: with `raise` a code outside
// the list raises, without it the answer is the sentinel 31.
inline constexpr int pfcModelItemTypeMiss = 31;
int pfcModelItemTypeFromPro(int code, const char* method, bool raise);
