#pragma once

// Tells the user that the Export command is done: a modal dialog with a label
// and an OK button.
void showExportFinished();
