#pragma once
// The three roads of a run: a scene file, or the live link to a new or idle
// renderer, or to the renderer that already shows the model.
enum class ExportRoad { File, Render, Update };
