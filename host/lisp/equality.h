// SPDX-License-Identifier: LicenseRef-ORVALD
// When two values are the same (eq) and when they are equal.
#pragma once

#include "objects.h"

namespace orvald::lisp {

/// Lists by identity; reals of equal value and strings of equal text are the same. An integer is
/// never the same as a real.
inline bool sameValue(Value a, Value b)
{
    if (a == b) return true;
    if (a.isReal()) return b.isReal() && a.asReal() == b.asReal();
    return isString(a) && isString(b) && stringOf(a) == stringOf(b);
}

bool equalLists(Value a, Value b, double fuzz);
bool equalReals(double a, double b, double fuzz);

/// By structure; numbers by value, reals within `fuzz` (a length of the list's own unit).
inline bool equalValues(Value a, Value b, double fuzz)
{
    if (a == b) return true;
    if (a.isCons()) return b.isCons() && equalLists(a, b, fuzz);
    if (a.isNumber()) return b.isNumber() && equalReals(a.asNumber(), b.asNumber(), fuzz);
    return isString(a) && isString(b) && stringOf(a) == stringOf(b);
}

} // namespace orvald::lisp
