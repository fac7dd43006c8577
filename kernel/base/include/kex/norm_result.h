// SPDX-License-Identifier: LicenseRef-ORVALD
// nrmResult: the reals that a look-up of a norm profile found, by position.
#pragma once

#include "kex/array.h"

#include <limits>

namespace KEX {

class nrmResult
{
public:
    void append(double value) { values_.append(value); }
    /// Not a number behind the last value, which is how a reader finds the end.
    double operator[](int position) const
    {
        const bool inside = position >= 0 && position < values_.length();
        return inside ? values_[position] : std::numeric_limits<double>::quiet_NaN();
    }

private:
    CKexArrayTempl<double> values_;
};

} // namespace KEX
