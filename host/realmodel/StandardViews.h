#pragma once
// The views that a freshly opened model offers: the current view in the
// isometric orientation, and the standard named views as saved views.
#include <vector>

#include "host/Model.h"

namespace host::realmodel {

// Model to view orientation (row vectors): the view's right, up and towards
// the viewer, as columns 0, 1 and 2.
Matrix isometricView();

// "FRONT", "BACK", "TOP", "BOTTOM", "LEFT", "RIGHT", "ISOMETRIC".
std::vector<View> standardViews();

}  // namespace host::realmodel
