#pragma once
// The host toolkit's numbers that the plug-in, the headless host and the
// tests share: statuses, modes, model and feature types, item kinds, layer
// statuses, representation actions and the words of the interface data. The
// values are the host's own.
#include <cstdint>

typedef int ProError;
enum : ProError {
    PRO_TK_NO_ERROR = 0,
    PRO_TK_GENERAL_ERROR = -1,
    PRO_TK_BAD_INPUTS = -2,
    PRO_TK_USER_ABORT = -3,
    PRO_TK_E_NOT_FOUND = -4,
    PRO_TK_CONTINUE = -7,
    PRO_TK_COMM_ERROR = -11,
    PRO_TK_NOT_EXIST = -23,
};

typedef int ProBoolean;
enum : ProBoolean { PRO_B_FALSE = 0, PRO_B_TRUE = 1 };

// Modes of the session (ProModeCurrentGet).
enum : int { PRO_MODE_PART = 1, PRO_MODE_PART_ALTERNATE = 2, PRO_MODE_ASSEMBLY = 5 };

// Model types (ProMdlTypeGet).
enum : int { PRO_MDL_ASSEMBLY = 1, PRO_MDL_PART = 2 };

// Feature types and statuses.
enum : int { PRO_FEAT_TYPE_SOLID = 917, PRO_FEAT_TYPE_COMPONENT = 1000, PRO_FEAT_TYPE_THREAD = 1070 };
enum : int { PRO_FEAT_ACTIVE = 0, PRO_FEAT_SUPPRESSED = 5 };

// Kinds of model items (ProModelitem::type). A model's own item has the
// model's type code and the id PRO_MODEL_ITEM_ID; a feature's id is 0 or more.
enum : int { PRO_ITEM_FEATURE = 1, PRO_ITEM_SURFACE = 5, PRO_ITEM_LAYER = 7, PRO_ITEM_SIMPREP = 52, PRO_ITEM_QUILT = 54 };
enum : int { PRO_MODEL_ITEM_ID = -1 };

// Layer item kinds and display statuses.
enum : int { PRO_LAYER_ITEM_FEATURE = 3, PRO_LAYER_ITEM_QUILT = 57 };
enum : int {
    PRO_LAYER_NO_STATUS = -1,
    PRO_LAYER_NORMAL = 1,
    PRO_LAYER_DISPLAY = 2,
    PRO_LAYER_BLANK = 3,
    PRO_LAYER_HIDDEN = 5,
};

// Actions of a simplified representation: its default and its items'.
enum : int { PRO_SIMPREP_REVERSE = 1, PRO_SIMPREP_INCLUDE = 2, PRO_SIMPREP_EXCLUDE = 3 };

// Unit types and unit system types.
enum : int { PRO_UNITTYPE_LENGTH = 0 };
enum : int { PRO_UNITSYSTEM_MASS_LENGTH_TIME = 1 };

// Kinds of a texture placement (ProMdlVisibleTextureplacementpropsGet): which
// path of the texture record the placement uses.
enum : int { PRO_TEXTURE_TYPE_NONE = 0, PRO_TEXTURE_TYPE_BUMP = 1, PRO_TEXTURE_TYPE_COLOR = 2, PRO_TEXTURE_TYPE_DECAL = 3 };

// What ProPartToProIntfData is asked to convert, and how.
enum : std::uint32_t {
    PRO_INTF_UV_POINTS = 1u,   // edges carry their points in surface parameters
    PRO_INTF_UV_CURVES = 2u,   // edges carry their curves in surface parameters
    PRO_INTF_XYZ_CURVES = 4u,  // edges carry their curves in space
};
enum : int { PRO_PART_CURVES_AS_BSPLINES = 2, PRO_PART_SURFACES_AS_BSPL_SURFACES = 2 };

// Contour traversals, the curve type of a B-spline, and the direction of an
// edge used against itself in a contour or by a surface.
enum : int { PRO_CONTOUR_TRAV_INTERNAL = -1, PRO_CONTOUR_TRAV_NONE = 0, PRO_CONTOUR_TRAV_EXTERNAL = 1 };
enum : int { PRO_ENT_B_SPLINE = 19 };
enum : int { PRO_EDGE_DIRECTION_REVERSED = 1 };
