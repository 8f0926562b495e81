#pragma once
// The settings dialog: tessellation quality, materials, NURBS, up axis,
// selection mode and animation prompt, with buttons that apply them and
// start an Update or a Render at once.

class VantrelPlugin;

// Shows the dialog as the settings file has them; answers true if it ended
// with OK, Update or Render. No current model, no dialog.
bool showSettingsDialog(VantrelPlugin& plugin);

// The dialog's actions; `data` is the VantrelPlugin.
void applySettingsDialog(char* dialog, char* component, void* data);
void cancelSettingsDialog(char* dialog, char* component, void* data);
void sliderChanged(char* dialog, char* component, void* data);
void spinboxChanged(char* dialog, char* component, void* data);
