#pragma once
// The "triangles" object of a mesh in the plug-in's mesh buffers, with its
// material.
#include <string>

#include "export/MaterialRecord.h"

class VantrelPlugin;

void writeMeshObject(VantrelPlugin& plugin, const std::string& partName, const MaterialRecord& record);

// The mesh buffers hold a mesh worth writing: vertices and triangles.
bool meshIsWritable(const VantrelPlugin& plugin);

// Empties the four mesh buffers, keeping their storage.
void clearMeshBuffers(VantrelPlugin& plugin);
