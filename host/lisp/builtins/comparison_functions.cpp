// SPDX-License-Identifier: LicenseRef-ORVALD
// = and the orders compare neighbours: numbers by value, strings unit by unit. nil compares with
// nothing and is no error, so that (<= 48 (car chars) 57) ends a loop at the end of a list.
#include "builtins/tables.h"

#include "equality.h"
#include "printer.h"

#include <compare>

namespace orvald::lisp {

namespace {

bool isEqualTo(Value a, Value b)
{
    if (a.isNumber() && b.isNumber()) return a.asNumber() == b.asNumber();
    return sameValue(a, b);
}

// Unordered when an operand is nil.
std::partial_ordering order(World& world, Value a, Value b)
{
    if (a.isNumber() && b.isNumber()) return a.asNumber() <=> b.asNumber();
    if (isString(a) && isString(b)) return stringOf(a) <=> stringOf(b);
    if (a.isNil() || b.isNil()) return std::partial_ordering::unordered;
    world.raise(u"bad argument type for compare: " + printedText(a, Quoting::quoted, 200) + u" " +
                printedText(b, Quoting::quoted, 200));
}

template <class Holds>
Value chain(World& world, Args args, Holds holds)
{
    bool result = true;
    for (int i = 0; i + 1 < args.size(); ++i) {
        if (!holds(args[i], args[i + 1])) result = false;
    }
    return world.boolean(result);
}

Value equalTo(World& world, Args args) { return chain(world, args, isEqualTo); }

Value unequalTo(World& world, Args args)
{
    return chain(world, args, [](Value a, Value b) { return !isEqualTo(a, b); });
}

Value less(World& world, Args args)
{
    return chain(world, args, [&](Value a, Value b) { return order(world, a, b) < 0; });
}

Value lessEqual(World& world, Args args)
{
    return chain(world, args, [&](Value a, Value b) { return order(world, a, b) <= 0; });
}

Value greater(World& world, Args args)
{
    return chain(world, args, [&](Value a, Value b) { return order(world, a, b) > 0; });
}

Value greaterEqual(World& world, Args args)
{
    return chain(world, args, [&](Value a, Value b) { return order(world, a, b) >= 0; });
}

Value eq(World& world, Args args) { return world.boolean(sameValue(args[0], args[1])); }

Value equal(World& world, Args args)
{
    const double fuzz = args.size() == 3 ? args.number(2) : 0.0;
    return world.boolean(equalValues(args[0], args[1], fuzz));
}

Value isNil(World& world, Args args) { return world.boolean(args[0].isNil()); }

constexpr Builtin kTable[] = {
    {"=", equalTo, 1},     {"/=", unequalTo, 1},    {"<", less, 1},   {"<=", lessEqual, 1},
    {">", greater, 1},     {">=", greaterEqual, 1}, {"eq", eq, 2, 2}, {"equal", equal, 2, 3},
    {"null", isNil, 1, 1}, {"not", isNil, 1, 1},
};

} // namespace

std::span<const Builtin> comparisonBuiltins() { return kTable; }

} // namespace orvald::lisp
