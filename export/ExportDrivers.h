#pragma once
// The drivers of the Render, Update and Export commands: each opens a scene,
// tells the importer how to take it, wraps the current model in one group
// named after it, sends the model and closes.
#include <string>

#include "export/ComponentVisitData.h"

class VantrelPlugin;

// Host command actions: no arguments, answer 0.
int renderCommandAction();
int exportCommandAction();
int updateCommandAction();

void exportToFile(VantrelPlugin& plugin);
void renderLive(VantrelPlugin& plugin);
void updateLive(VantrelPlugin& plugin);

// The body common to the three drivers: the cameras, the components, then the
// model's own solid.
void exportModel(VantrelPlugin& plugin, ProMdl model, int mode, ComponentVisitData& visitData,
                 const std::string& name);

