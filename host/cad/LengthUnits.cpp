#include "host/cad/LengthUnits.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

namespace host::cad {

namespace {

struct UnitSpellings {
    const char* name;
    double millimetres;
    std::initializer_list<const char*> spellings;
};

const UnitSpellings knownUnits[] = {
    {"mm", 1.0, {"mm", "millimetre", "millimeter", "millimetres", "millimeters"}},
    {"cm", 10.0, {"cm", "centimetre", "centimeter", "centimetres", "centimeters"}},
    {"m", 1000.0, {"m", "metre", "meter", "metres", "meters"}},
    {"km", 1000000.0, {"km", "kilometre", "kilometer", "kilometres", "kilometers"}},
    {"in", 25.4, {"in", "inch", "inches"}},
    {"ft", 304.8, {"ft", "foot", "feet"}},
    {"mil", 0.0254, {"mil", "mils", "milliinch", "thou"}},
    {"micron", 0.001, {"micron", "microns", "um", "micrometre", "micrometer", "micrometres", "micrometers"}},
};

std::string normalised(const std::string& spelling) {
    std::string result;
    for (char c : spelling) {
        if (c == ' ' || c == '_' || c == '.') continue;
        result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return result;
}

}  // namespace

std::optional<LengthUnit> lengthUnitFromSpelling(const std::string& spelling) {
    const std::string key = normalised(spelling);
    for (const UnitSpellings& unit : knownUnits) {
        const auto& names = unit.spellings;
        if (std::find(names.begin(), names.end(), key) != names.end()) {
            return LengthUnit{unit.name, unit.millimetres};
        }
    }
    return std::nullopt;
}

LengthUnit millimetreUnit() {
    return LengthUnit{"mm", 1.0};
}

}  // namespace host::cad
