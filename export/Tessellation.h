#pragma once
// From the quality setting to the host's tessellation input, and the
// triangulation of one surface with its retry ladder.
#include "export/ScratchArrays.h"
#include "toolkit/ProToolkit.h"

// The distance between the two corners of the solid's outline; 1.0 if the
// host can't give the outline.
double solidDiagonal(ProSolid solid);

// The chord height for a quality from 0 (coarse) to 1 (fine) on a solid of
// the given diagonal. Not clamped: below about 0.0067 it grows past coarse.
double chordHeightFor(double diagonal, double quality);

// A tessellation input at the chord height for the quality; the caller frees
// it with ProSurfacetessellationinputFree.
ProSurfaceTessellationInput makeTessellationInput(ProSolid solid, double quality);

// Triangulates one surface and appends it to the mesh buffers. A surface that
// the host refuses at `input` is tried along the ladder around the quality
// setting; one refused at every rung is left out and answers false. The
// index base grows by the surface's vertex count.
bool tessellateSurface(ScratchArrays& buffers, ProSurface surface, ProSolid solid, double quality,
                       ProSurfaceTessellationInput input, int* indexBase);
