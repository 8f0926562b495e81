#pragma once
// The actions of the Render, Export and Update commands: each runs one export
// of the current model and answers 0.

int renderCommandAction();
int exportCommandAction();
int updateCommandAction();
