// A model's principal unit system and its length unit. The headless host
// models only the length unit: the one thing the plug-in reads.
#include <array>
#include <optional>

#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"

namespace host {
namespace {

constexpr size_t unitNameCapacity = sizeof(ProUnitName) / sizeof(ProWchar);

struct KnownUnit {
    std::u16string_view name;
    double metres;  // the length of one unit in metres
};

constexpr std::array<KnownUnit, 8> knownUnits = {{
    {u"m", 1.0},
    {u"mm", 0.001},
    {u"cm", 0.01},
    {u"km", 1000.0},
    {u"in", 0.0254},
    {u"ft", 0.3048},
    {u"mil", 0.0000254},
    {u"micron", 0.000001},
}};

std::optional<double> metresPer(std::u16string_view unit) {
    for (const KnownUnit& known : knownUnits) {
        if (known.name == unit) return known.metres;
    }
    return std::nullopt;
}

}  // namespace

// The system is named after the model's length unit.
ProError ops::ProMdlPrincipalunitsystemGet(Session& session, ProMdl handle, ProUnitsystem* system) {
    const Model* model = modelOf(session, handle);
    if (!model || !system) return PRO_TK_BAD_INPUTS;
    system->owner = handle;
    copyToBuffer(system->name, unitNameCapacity, model->lengthUnit + u" system");
    return PRO_TK_NO_ERROR;
}

ProError ops::ProUnitsystemTypeGet(Session& session, ProUnitsystem* system, int* type) {
    if (!system || !modelOf(session, system->owner) || !type) return PRO_TK_BAD_INPUTS;
    *type = PRO_UNITSYSTEM_MASS_LENGTH_TIME;
    return PRO_TK_NO_ERROR;
}

// Only the length unit (type 0) is known; other types are not found.
ProError ops::ProUnitsystemUnitGet(Session& session, ProUnitsystem* system, int unitType, ProUnititem* unit) {
    const Model* model = system ? modelOf(session, system->owner) : nullptr;
    if (!model || !unit) return PRO_TK_BAD_INPUTS;
    if (unitType != PRO_UNITTYPE_LENGTH) return PRO_TK_E_NOT_FOUND;
    unit->owner = system->owner;
    copyToBuffer(unit->name, unitNameCapacity, model->lengthUnit);
    return PRO_TK_NO_ERROR;
}

// The length of `unit` in units of `reference`, or in metres when there is
// no reference; not found for a unit the host doesn't know.
ProError ops::ProUnitConversionGet(Session&, ProUnititem* unit, ProUnitConversion* conversion,
                                   ProUnititem* reference) {
    if (!unit || !conversion) return PRO_TK_BAD_INPUTS;
    std::optional<double> metres = metresPer(textOf(unit->name));
    std::optional<double> referenceMetres = reference ? metresPer(textOf(reference->name)) : 1.0;
    if (!metres || !referenceMetres) return PRO_TK_E_NOT_FOUND;
    *conversion = ProUnitConversion{*metres / *referenceMetres, 0.0};
    return PRO_TK_NO_ERROR;
}

}  // namespace host
