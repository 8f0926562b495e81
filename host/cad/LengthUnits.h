#pragma once
// Length units by the short names that the host uses ("mm", "in", ...), and
// the many ways that exchange files spell them.
#include <optional>
#include <string>

namespace host::cad {

struct LengthUnit {
    std::string name;    // the host's short name: "mm", "cm", "m", "in", "ft", "mil", "micron", "km"
    double millimetres;  // the length of one unit
};

// Recognises a unit as a file spells it: "millimetre", "MILLIMETER", "INCH",
// "in", "CENTI METRE". Case, spaces and underscores don't count.
std::optional<LengthUnit> lengthUnitFromSpelling(const std::string& spelling);

// The unit assumed for formats that carry none.
LengthUnit millimetreUnit();

}  // namespace host::cad
