#pragma once
// The host's function toolkit as the plug-in sees it: its types, and the
// declarations of every host operation that the plug-in calls. The operations
// come from one list (ProOperations.def); the same list makes the plug-in's
// call stubs and the headless host's function table.
#include <cstdint>

#include "toolkit/ProConstants.h"

extern "C" {

typedef char16_t ProWchar;                 // wide text is 16-bit on every platform
typedef ProWchar ProMdlName[81];           // a model's bare name
typedef ProWchar ProLine[81];              // a line of text: view names, messages, options
typedef ProWchar ProPath[261];             // a file path
typedef ProWchar ProUnitName[32];

typedef double ProMatrix[4][4];            // row vectors, translation in row 3
typedef double Pro3dPnt[3];
typedef double ProVector[3];
typedef double Pro2dPnt[2];
typedef int ProTriangle[3];

// Host handles, opaque to the plug-in.
typedef struct ProMdlOpaque* ProMdl;
typedef ProMdl ProSolid;
typedef struct ProSurfaceOpaque* ProSurface;
typedef struct ProQuiltOpaque* ProQuilt;
typedef struct ProFacetsetOpaque* ProFacetset;
typedef struct ProFacetOpaque* ProFacet;
typedef struct ProFacetVertexOpaque* ProFacetVertex;
typedef struct ProViewOpaque* ProView;
typedef struct ProSelectionOpaque* ProSelection;
typedef struct ProTessellationInputOpaque* ProSurfaceTessellationInput;
typedef struct ProTessellationOpaque* ProTessellation;
typedef struct uiCmdOpaque* uiCmdCmdId;
typedef struct ProIntfDataOpaque* ProIntfData;              // a block of interface data
typedef struct ProEdgedataOpaque* ProEdgedata;              // an edge of the block
typedef struct ProSurfacedataOpaque* ProSurfacedata;        // an exact surface of the block
typedef struct ProQuiltdataOpaque* ProQuiltdata;            // a quilt of the block
typedef struct ProSurfaceshapedataOpaque* ProSurfaceshapedata;  // the shape part of surface data
typedef struct ProCurvedataOpaque* ProCurvedata;            // curve storage, allocated by the plug-in
typedef struct ProContourOpaque* ProContour;                // a contour of a visited surface
typedef struct ProEdgeOpaque* ProEdge;                      // an edge of a visited contour
typedef void* ProArray;                    // a host array: its size comes from ProArraySizeGet
typedef void* ProAppData;

// An item of a model: features, geometry items, layers, layer items and
// simplified representations all have this shape.
struct ProModelitem {
    int type;
    int id;
    ProMdl owner;
};
typedef ProModelitem ProFeature;
typedef ProModelitem ProGeomitem;
typedef ProModelitem ProLayer;
typedef ProModelitem ProLayerItem;
typedef ProModelitem ProSimprep;

enum { PRO_MAX_ASSEM_LEVEL = 25 };
struct ProAsmcomppath {
    ProMdl ownerModel;
    int componentIds[PRO_MAX_ASSEM_LEVEL];
    int componentIdCount;
};

// Opaque to the plug-in: stored, and compared only through ProVerstampEqual.
struct ProMdlVerstamp {
    unsigned char bytes[16];
};

struct ProMdldata {
    ProMdlName name;
    ProWchar type[8];
    ProPath path;
};

struct ProUnitsystem {
    ProMdl owner;
    ProUnitName name;
};
struct ProUnititem {
    ProMdl owner;
    ProUnitName name;
};
struct ProUnitConversion {
    double scale;
    double offset;
};

struct AppearanceProps {
    double ambient;
    double diffuse;
    double highlite;
    double shininess;
    double transparency;
    double color[3];
    double highlightColor[3];
    double reflection;
    ProWchar name[260];
    ProWchar label[260];
    ProWchar description[260];
    ProWchar keywords[260];
};

struct TextureProps {
    char decal[260];
    char color[260];
    char bump[260];
};

// How one texture lies on a surface; its type (PRO_TEXTURE_TYPE_*) says which
// path of the texture record it uses.
struct ProTextureplacement {
    int type;
    double scale[2];
    double offset[2];
    double angle;
};

// The action of one item of a simplified representation: 136 bytes kept
// whole, of which only the type is read.
struct SimprepAction {
    int type;
    unsigned char rest[132];
};
static_assert(sizeof(SimprepAction) == 136, "the host's action record is 136 bytes");

struct ProSimprepitem {
    int componentIds[PRO_MAX_ASSEM_LEVEL];
    int componentIdCount;   // -1: the item names no component
    SimprepAction action;
};

struct ProSimprepdata {
    int defaultAction;
    ProSimprepitem* items;  // a host array
};

// What ProPartToProIntfData is asked to convert (PRO_INTF_ flags), and how.
struct ProIntfDataOptions {
    std::uint32_t flags;
    std::int32_t curveOption;
    std::int32_t surfaceOption;
};

// One contour of an exact surface: its traversal and the ids of its edges
// (a host array), in the order the contour runs.
struct ProContourdata {
    int traversal;
    int* edgeIds;
};

// The exact data of a visited surface; ProGeomitemdataFree releases it.
struct ProGeomitemdata {
    int objectType;
    ProSurfacedata surface;
};

// Grid placement of a dialog component.
struct ProUIGridopts {
    int column;
    int row;
    int horz_cells;
    int vert_cells;
    int attach_top;
    int attach_bottom;
    int attach_left;
    int attach_right;
    int horz_resize;
    int vert_resize;
    int top_offset;
    int bottom_offset;
    int left_offset;
    int right_offset;
};

// Callback shapes.
typedef int (*uiCmdCmdActFn)();
typedef int (*uiCmdAccessFn)(int accessMode);
typedef ProError (*ProFeatureVisitAction)(ProFeature* feature, ProError status, ProAppData data);
typedef ProError (*ProFeatureFilterAction)(ProFeature* feature, ProAppData data);
typedef ProError (*ProSurfaceVisitAction)(ProSurface surface, ProError status, ProAppData data);
typedef ProError (*ProSurfaceFilterAction)(ProSurface surface, ProAppData data);
typedef ProError (*ProQuiltVisitAction)(ProQuilt quilt, ProError status, ProAppData data);
typedef ProError (*ProQuiltFilterAction)(ProQuilt quilt, ProAppData data);
typedef ProError (*ProFacetsetVisitAction)(ProFacetset facetset, ProError status, ProAppData data);
typedef ProError (*ProFacetsetFilterAction)(ProFacetset facetset, ProAppData data);
typedef ProError (*ProFacetVisitAction)(ProFacet facet, ProError status, ProAppData data);
typedef ProError (*ProFacetFilterAction)(ProFacet facet, ProAppData data);
typedef ProError (*ProSimprepVisitAction)(ProSimprep* simprep, ProError status, ProAppData data);
typedef ProError (*ProSimprepFilterAction)(ProSimprep* simprep, ProAppData data);
typedef ProError (*ProSimprepitemVisitAction)(ProSimprepitem* item, ProError status, ProAppData data);
typedef ProError (*ProContourVisitAction)(ProContour contour, ProError status, ProAppData data);
typedef ProError (*ProContourFilterAction)(ProContour contour, ProAppData data);
typedef ProError (*ProEdgeVisitAction)(ProEdge edge, ProError status, ProAppData data);
typedef ProError (*ProEdgeFilterAction)(ProEdge edge, ProAppData data);
typedef void (*ProUIAction)(char* dialog, char* component, ProAppData data);

// The host's table of functions, sorted by name in byte order.
struct HostFunctionEntry {
    void* function;
    const char* name;
};

// The declarations of the host operations.
#define PRO_OPERATION(result, name, parameters, arguments, miss) result name parameters;
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION

}  // extern "C"

// The shape of a host function: the toolkit signature with the application
// context as an extra first argument.
template <typename Function>
struct HostSignatureOf;
template <typename Result, typename... Arguments>
struct HostSignatureOf<Result (*)(Arguments...)> {
    using type = Result (*)(int, Arguments...);
};
template <typename Function>
using HostSignature = typename HostSignatureOf<Function>::type;
