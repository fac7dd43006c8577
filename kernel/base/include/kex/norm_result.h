// SPDX-License-Identifier: LicenseRef-ORVALD
// Result of a look-up in the norm profiles: a row of reals by position.
#pragma once

#include "kex/array.h"

#include <limits>

namespace KEX {

class nrmResult
{
public:
    nrmResult() = default;
    explicit nrmResult(CKexArrayTempl<double> values) : values_(std::move(values)) {}
    /// The value at a position from 0; not a number behind the last one.
    double operator[](int position) const
    {
        const bool inside = position >= 0 && position < values_.length();
        return inside ? values_[position] : std::numeric_limits<double>::quiet_NaN();
    }

private:
    CKexArrayTempl<double> values_;
};

} // namespace KEX
