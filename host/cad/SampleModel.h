#pragma once
// The bundled sample model, made with geometry kernel code: an assembly with a
// sub-assembly, a bolt used twice, a plate with two holes, a free-form B-spline
// sheet, named coloured materials, and a triangle mesh.
#include <string>

namespace host::cad {

struct SampleFiles {
    std::string stepPath;
    std::string meshPath;
};

// Writes the sample as a STEP file in millimetres. A STEP file of this kernel
// can't carry a triangle mesh, so the mesh goes into an STL file beside it
// ("NAME-mesh.stl"), and the assembly holds an empty part named after that
// file, which loading fills with its facets. Throws std::runtime_error if a
// file can't be written.
SampleFiles writeSampleStep(const std::string& path);

}  // namespace host::cad
