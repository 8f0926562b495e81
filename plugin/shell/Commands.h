#pragma once
// The plug-in's six commands in the host's user interface, and the two
// selection commands that show which selection mode is in force.

class VantrelPlugin;

// Registers the six commands with their labels, help texts and icons. Answers
// the host's status of the last call.
int registerCommands(VantrelPlugin& plugin);

// The access function of every command: always available.
int commandAccess(int accessMode);

// Sets the selection mode and gives the two selection commands the icons
// that show it. Saves nothing.
void setSelectionMode(VantrelPlugin& plugin, bool manual);
