// SPDX-License-Identifier: LicenseRef-ORVALD
// Lengths and numbers written as people write them, and the texts by which sizes serve as keys.
#pragma once

#include "kex/string.h"

namespace KEX {

/// Reads a length and gives it in `unit`, a number of Kex::lUnit, -1 for the drawing's. False, and
/// the result left alone, for what is none.
///
///     [+-] number [mm cm dm m km µm um in " ft ' yd mi]
///     [+-] feet ' [-] inches "
///
/// A number is decimal, with "." or "," as point ("12,5"), or a fraction ("3/4", "2 3/4"). Units
/// are read in either case, but the metre is a small m. Without a unit the number is in `unit`
/// already. Blanks between the elements do not count.
KEX_BASE_API bool str_to_unit(TextView text, int unit, double& length);

/// The number that a text, blanks at its ends aside, is wholly: [+-] digits with at most one "." or
/// "," among them, and an exponent. False, and the result left alone, for all else, and for what
/// no real can hold.
KEX_BASE_API bool str_to_number(TextView text, double& number);

/// A number as key: at most four decimals, without zeros or a point at the end; "0", never "-0".
KEX_BASE_API CKexString str_gd_key(double number);
/// The number that a key begins with, "," read as the point; 0.0 when there is none, or none that
/// a real can hold.
KEX_BASE_API double str_key_gd(TextView key);

} // namespace KEX
