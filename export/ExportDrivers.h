#pragma once
// The drivers of the Render, Update and Export commands: each opens a scene,
// tells the importer how to take it, wraps the current model in one group
// named after it, sends the model and closes. A failure that the scene
// raises (a file that can't be opened or closed) leaves the driver and ends
// the run where the command action catches it.
#include <string>

#include "export/ComponentVisitData.h"

class VantrelPlugin;
struct RunContext;

void exportToFile(VantrelPlugin& plugin);
void renderLive(VantrelPlugin& plugin);
void updateLive(VantrelPlugin& plugin);

// The body common to the three drivers: the cameras, the components, then the
// model's own solid.
void exportModel(RunContext& run, ProMdl model, int mode, ComponentVisitData& visitData, const std::string& name);
