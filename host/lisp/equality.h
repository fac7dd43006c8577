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

/// Calls `use` with a test for being equal to `key`, without fuzz: what kind of value the key is,
/// is looked at once and not for each element of a list.
template <class Use>
Value withEqualTo(Value key, Use&& use)
{
    if (key.isNumber()) {
        return use([key, number = key.asNumber()](Value value) {
            return value == key || (value.isNumber() && value.asNumber() == number);
        });
    }
    if (key.isCons() || key.isObject()) {
        return use([key](Value value) { return equalValues(value, key, 0.0); });
    }
    return use([key](Value value) { return value == key; });
}

} // namespace orvald::lisp
