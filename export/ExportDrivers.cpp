#include "export/ExportDrivers.h"

// The runs themselves are not wired yet: each command answers at once.
int renderCommandAction() { return 0; }

int exportCommandAction() { return 0; }

int updateCommandAction() { return 0; }
