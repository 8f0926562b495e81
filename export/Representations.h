#pragma once
#include "export/ComponentVisitData.h"

// Chooses the simplified representation of an assembly: with several, the
// user picks one. Sets visitData.included and visitData.defaultAction and
// fills the map that visitData.representationItems points to. Answers false
// only if the user cancelled the choice.
bool selectRepresentation(ProMdl model, ComponentVisitData& visitData);

// The action of the representation's item visit: stores each item's action
// under its component path.
ProError collectRepresentationItem(ProSimprepitem* item, ProError status, ProAppData data);
