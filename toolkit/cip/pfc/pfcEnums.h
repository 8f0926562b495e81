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
