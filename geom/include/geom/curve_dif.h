// SPDX-License-Identifier: LicenseRef-ORVALD
// The optional argument that says how near arcs stay to a curve.
#pragma once

#include "marshal/arg_reader.h"

namespace KEX {

/// Drawing units, above 0; 0.01 when it is missing.
inline double curveDif(ArgReader& in, int position)
{
    constexpr double kUsual = 0.01;
    const double dif = in.numberIfAny(position).value_or(kUsual);
    in.require(dif > 0.0, position);
    return dif;
}

} // namespace KEX
