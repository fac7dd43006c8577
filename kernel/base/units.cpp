// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/units.h"

#include "kex/system.h"

#include <iterator>

namespace KEX {
namespace {

/// Metres in a US survey foot.
constexpr double kSurveyFoot = 1200.0 / 3937.0;

/// Millimetres in each unit, by its number.
constexpr double kFactors[] = {
    0.0,
    25.4,                          // inch
    304.8,                         // foot
    1609344.0,                     // mile
    1.0,                           // millimetre
    10.0,                          // centimetre
    1000.0,                        // metre
    1e6,                           // kilometre
    25.4e-6,                       // microinch
    25.4e-3,                       // mil
    914.4,                         // yard
    1e-7,                          // angstrom
    1e-6,                          // nanometre
    1e-3,                          // micrometre
    100.0,                         // decimetre
    1e4,                           // decametre
    1e5,                           // hectometre
    1e12,                          // gigametre
    1.495978707e14,                // astronomical unit
    9.4607304725808e18,            // light year
    3.0856775814913673e19,         // parsec
    1000.0 * kSurveyFoot,          // US survey foot
    1000.0 * kSurveyFoot / 12.0,   // US survey inch
    1000.0 * kSurveyFoot * 3.0,    // US survey yard
    1000.0 * kSurveyFoot * 5280.0, // US survey mile
};

Kex::lUnit workingUnit = Kex::kUnitNone;

bool isUnit(int unit) { return unit > 0 && unit < static_cast<int>(std::size(kFactors)); }

} // namespace

Kex::lUnit acad_insunit()
{
    const int unit = sysVarInt(KT("INSUNITS"), Kex::kUnitNone);
    return isUnit(unit) ? static_cast<Kex::lUnit>(unit) : Kex::kUnitNone;
}

double acadUnitFactor(int unit) { return isUnit(unit) ? kFactors[unit] : 0.0; }

double acadUnitCv(double length, int from, int to)
{
    if (from == Kex::kUnitDrawing) from = acad_insunit();
    if (to == Kex::kUnitDrawing) to = acad_insunit();
    if (!isUnit(from) || !isUnit(to) || from == to) return length;
    return length * kFactors[from] / kFactors[to];
}

Kex::lUnit acad_unit() { return workingUnit; }

void acad_unit_set(int unit)
{
    workingUnit = isUnit(unit) ? static_cast<Kex::lUnit>(unit) : Kex::kUnitNone;
}

bool acad_unit_imperial(int unit)
{
    const bool common = unit >= Kex::kUnitInch && unit <= Kex::kUnitMile;
    const bool small = unit >= Kex::kUnitMicroinch && unit <= Kex::kUnitYard;
    return common || small || (unit >= Kex::kUnitSurveyFoot && unit <= Kex::kUnitSurveyMile);
}

} // namespace KEX
