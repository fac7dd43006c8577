// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's text value, as far as applications meet it in the database classes.
#pragma once

#include "hostapi/types.h"

#include <string>

class AcString
{
public:
    AcString() = default;
    /// Null is empty.
    AcString(const ACHAR* text) : text_(text == nullptr ? std::basic_string<ACHAR>() : text) {}
    const ACHAR* kwszPtr() const { return text_.c_str(); }
    bool isEmpty() const { return text_.empty(); }
    friend bool operator==(const AcString&, const AcString&) = default;

private:
    std::basic_string<ACHAR> text_;
};
