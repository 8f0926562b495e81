#pragma once
// The animation dialog: before a run with promptForMechanism set, it names
// the motion file that the host's mechanism recorded. Export reads the file
// into the frame table and lets the run go on; Cancel cancels the run.

class VantrelPlugin;

// Shows the dialog with the last motion file offered again; answers true if
// the run may go on. No current model, no dialog, and the run ends.
bool showAnimationDialog(VantrelPlugin& plugin);

// The dialog's actions; `data` is the VantrelPlugin (browseFraFile takes the
// instance itself).
void browseFraFile(char* dialog, char* component, void* data);
void acceptAnimationDialog(char* dialog, char* component, void* data);
void cancelAnimationDialog(char* dialog, char* component, void* data);
