#pragma once
// Mesh-only geometry of AP242 STEP files: triangulated faces, complex
// triangulated faces, tessellated shells and solids. The kernel's STEP reader
// doesn't transfer these entities, but it keeps them in its STEP model as
// entities of unknown type with their parameters; they are read from there
// into facet sets, with the colour that a styled item gives them.
#include <StepData_StepModel.hxx>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/cad/CadModel.h"

namespace host::cad {

// The facets of one tessellated shell or solid, or of the triangulated faces
// that belong to neither; in the file's length unit.
struct TessellatedSet {
    std::string name;  // the entity's own name; may be empty
    std::vector<Facet> facets;
    std::optional<CadAppearance> appearance;
};

struct TessellatedItems {
    std::vector<TessellatedSet> sets;
    std::string productName;  // of the file's only product; empty when it has several
};

// The tessellated items of `model`, read from `path`.
TessellatedItems readTessellatedItems(const Handle(StepData_StepModel)& model, const std::filesystem::path& path);

// Puts the sets into `model`: into its top part when the top is a part,
// else as parts of their own placed in the top assembly as they stand. A
// model that had nothing else becomes one part, named after the file's
// product, else after the file.
void addTessellatedSets(TessellatedItems items, CadModel& model);

}  // namespace host::cad
