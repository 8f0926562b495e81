#pragma once
// The actions of the plug-in's six commands, as the host calls them: no
// arguments, answer 0. Nothing thrown leaves them.

int renderCommandAction();
int exportCommandAction();
int updateCommandAction();
int settingsCommandAction();
int manualSelectionAction();
int automaticSelectionAction();
