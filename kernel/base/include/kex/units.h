// SPDX-License-Identifier: LicenseRef-ORVALD
// Units of length, numbered as the host numbers them in INSUNITS, and conversion between them.
#pragma once

#include "kex/export.h"

namespace Kex {
enum lUnit : int
{
    kUnitDrawing = -1, // whatever INSUNITS says
    kUnitNone = 0,
    kUnitInch = 1,
    kUnitFoot = 2,
    kUnitMile = 3,
    kUnitMillimetre = 4,
    kUnitCentimetre = 5,
    kUnitMetre = 6,
    kUnitKilometre = 7,
    kUnitMicroinch = 8,
    kUnitMil = 9,
    kUnitYard = 10,
    kUnitAngstrom = 11,
    kUnitNanometre = 12,
    kUnitMicrometre = 13,
    kUnitDecimetre = 14,
    kUnitDecametre = 15,
    kUnitHectometre = 16,
    kUnitGigametre = 17,
    kUnitAstronomical = 18,
    kUnitLightYear = 19,
    kUnitParsec = 20,
    kUnitSurveyFoot = 21,
    kUnitSurveyInch = 22,
    kUnitSurveyYard = 23,
    kUnitSurveyMile = 24
};
} // namespace Kex

namespace KEX {

/// Insertion unit of the current drawing; kUnitNone when there is none or the host does not say.
KEX_BASE_API Kex::lUnit acad_insunit();
/// Millimetres in one unit; 0.0 for kUnitNone and for numbers that are no unit.
KEX_BASE_API double acadUnitFactor(int unit);
/// A length of unit `from` in the unit `to`; -1 is the drawing's. Where either side is no unit, or
/// a unitless drawing, the length is taken over as it is. A unit converts to itself without
/// rounding.
KEX_BASE_API double acadUnitCv(double length, int from, int to);

/// The unit that the module works in, kUnitNone until it is set.
KEX_BASE_API Kex::lUnit acad_unit();
/// A number that is no unit sets kUnitNone.
KEX_BASE_API void acad_unit_set(int unit);
/// Units of the foot and inch family, survey units included.
KEX_BASE_API bool acad_unit_imperial(int unit);

} // namespace KEX
