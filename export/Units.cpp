#include "export/Units.h"

#include <string_view>

float meterScaleOfUnitName(const char16_t* unitName) {
    struct UnitScale {
        std::u16string_view name;
        float scale;
    };
    static constexpr UnitScale scales[] = {
        {u"cm", 100.0f},    {u"ft", 3.28084f},      {u"in", 39.37008f},
        {u"mm", 1000.0f},   {u"mil", 39370.08f},    {u"micron", 1000000.0f},
    };
    std::u16string_view name(unitName);
    for (const UnitScale& unit : scales)
        if (name == unit.name) return unit.scale;
    return 1.0f;
}

float meterScaleOf(ProMdl model) {
    ProUnitsystem system{};
    ProMdlPrincipalunitsystemGet(model, &system);
    int systemType = 0;
    ProUnitsystemTypeGet(&system, &systemType);
    ProUnititem lengthUnit{};
    ProUnitsystemUnitGet(&system, 0, &lengthUnit);
    // The host's conversion of the unit is asked for; the name alone decides.
    ProUnitConversion conversion{};
    ProUnitConversionGet(&lengthUnit, &conversion, nullptr);
    lengthUnit.name[sizeof lengthUnit.name / sizeof lengthUnit.name[0] - 1] = 0;
    return meterScaleOfUnitName(lengthUnit.name);
}
