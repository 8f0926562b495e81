#pragma once
// Grid placement of dialog components: all options but row and column are the
// same for every component of the plug-in's dialogs.
#include "toolkit/ProToolkit.h"

inline ProUIGridopts dialogGrid(int row, int column) {
    ProUIGridopts grid{};
    grid.row = row;
    grid.column = column;
    grid.horz_cells = grid.vert_cells = 1;
    grid.attach_top = grid.attach_bottom = grid.attach_left = grid.attach_right = 1;
    grid.horz_resize = grid.vert_resize = 1;
    grid.top_offset = grid.bottom_offset = grid.left_offset = grid.right_offset = -1;
    return grid;
}
