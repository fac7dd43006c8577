// SPDX-License-Identifier: LicenseRef-ORVALD
// Arithmetic. Integers stay integers and wrap; one real makes the result real.
#include "builtins/tables.h"

#include "evaluator.h"
#include "integer_arithmetic.h"
#include "printer.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>

namespace orvald::lisp {

namespace {

Value requireNumber(World& world, Value value)
{
    if (!value.isNumber()) world.badArgument("numberp:", value);
    return value;
}

[[noreturn]] void divideByZero(World& world) { world.raise(u"divide by zero"); }

[[noreturn]] void undefinedFor(World& world, Value value)
{
    world.raise(u"function undefined for argument: " + printedText(value, Quoting::quoted));
}

// Folds from the left; `integers` serves while everything so far is an integer.
template <class Integers, class Reals>
Value fold(World& world, Args args, Integers integers, Reals reals)
{
    if (args.size() == 0) return Value::integer(0);
    Value result = requireNumber(world, args[0]);
    for (int i = 1; i < args.size(); ++i) {
        const Value next = requireNumber(world, args[i]);
        result = result.isInteger() && next.isInteger()
                     ? Value::integer(integers(result.asInteger(), next.asInteger()))
                     : Value::real(reals(result.asNumber(), next.asNumber()));
    }
    return result;
}

Value add(World& world, Args args)
{
    return fold(world, args, wrappedAdd, [](double a, double b) { return a + b; });
}

Value subtract(World& world, Args args)
{
    if (args.size() == 1) {
        const Value value = requireNumber(world, args[0]);
        return value.isInteger() ? Value::integer(wrappedSubtract(0, value.asInteger()))
                                 : Value::real(-value.asReal());
    }
    return fold(world, args, wrappedSubtract, [](double a, double b) { return a - b; });
}

Value multiply(World& world, Args args)
{
    return fold(world, args, wrappedMultiply, [](double a, double b) { return a * b; });
}

Value divide(World& world, Args args)
{
    return fold(
        world, args,
        [&](std::int32_t a, std::int32_t b) {
            if (b == 0) divideByZero(world);
            return wrappedDivide(a, b);
        },
        [&](double a, double b) {
            if (b == 0.0) divideByZero(world);
            return a / b;
        });
}

Value rem(World& world, Args args)
{
    return fold(
        world, args,
        [&](std::int32_t a, std::int32_t b) {
            if (b == 0) divideByZero(world);
            return remainderOf(a, b);
        },
        [&](double a, double b) {
            if (b == 0.0) divideByZero(world);
            return std::fmod(a, b);
        });
}

template <class Better>
Value best(World& world, Args args, Better better)
{
    Value result = Value::integer(0);
    bool real = false;
    for (int i = 0; i < args.size(); ++i) {
        const Value value = requireNumber(world, args[i]);
        real = real || value.isReal();
        if (i == 0 || better(value.asNumber(), result.asNumber())) result = value;
    }
    return real ? Value::real(result.asNumber()) : result;
}

Value max(World& world, Args args) { return best(world, args, std::greater<>()); }
Value min(World& world, Args args) { return best(world, args, std::less<>()); }

Value step(World& world, Value value, std::int32_t by)
{
    requireNumber(world, value);
    return value.isInteger() ? Value::integer(wrappedAdd(value.asInteger(), by))
                             : Value::real(value.asReal() + by);
}

Value increment(World& world, Args args) { return step(world, args[0], 1); }
Value decrement(World& world, Args args) { return step(world, args[0], -1); }

Value abs(World& world, Args args)
{
    const Value value = requireNumber(world, args[0]);
    if (value.isReal()) return Value::real(std::fabs(value.asReal()));
    const std::int32_t number = value.asInteger();
    return Value::integer(number < 0 ? wrappedSubtract(0, number) : number);
}

Value fix(World& world, Args args)
{
    const Value value = requireNumber(world, args[0]);
    if (value.isInteger()) return value;
    const double whole = std::trunc(value.asReal());
    if (std::fabs(whole) <= std::numeric_limits<std::int32_t>::max()) {
        return Value::integer(static_cast<std::int32_t>(whole));
    }
    return Value::real(whole);
}

Value toReal(World&, Args args) { return Value::real(args.number(0)); }

Value sqrt(World& world, Args args)
{
    const double value = args.number(0);
    if (value < 0.0) undefinedFor(world, args[0]);
    return Value::real(std::sqrt(value));
}

Value exp(World&, Args args) { return Value::real(std::exp(args.number(0))); }

Value log(World& world, Args args)
{
    const double value = args.number(0);
    if (value <= 0.0) undefinedFor(world, args[0]);
    return Value::real(std::log(value));
}

std::int32_t integerPower(World& world, std::int32_t base, std::int32_t exponent)
{
    if (exponent < 0) {
        if (base == 0) divideByZero(world);
        if (base == 1) return 1;
        if (base == -1) return exponent % 2 == 0 ? 1 : -1;
        return 0; // the quotient 1 / base^n, truncated
    }
    std::int32_t result = 1;
    for (; exponent > 0; exponent >>= 1) {
        if ((exponent & 1) != 0) result = wrappedMultiply(result, base);
        base = wrappedMultiply(base, base);
    }
    return result;
}

Value expt(World& world, Args args)
{
    const double base = args.number(0);
    const double exponent = args.number(1);
    if (args[0].isInteger() && args[1].isInteger()) {
        return Value::integer(integerPower(world, args[0].asInteger(), args[1].asInteger()));
    }
    if (base == 0.0 && exponent < 0.0) divideByZero(world);
    if (base < 0.0 && exponent != std::trunc(exponent)) undefinedFor(world, args[0]);
    return Value::real(std::pow(base, exponent));
}

Value sin(World&, Args args) { return Value::real(std::sin(args.number(0))); }
Value cos(World&, Args args) { return Value::real(std::cos(args.number(0))); }

Value atan(World&, Args args)
{
    const double y = args.number(0);
    if (args.size() == 1) return Value::real(std::atan(y));
    // Adding 0.0 takes the sign off a zero, which would turn pi into -pi.
    return Value::real(std::atan2(y + 0.0, args.number(1)));
}

std::int32_t narrow(std::int64_t value)
{
    return wrapped(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

Value gcd(World&, Args args)
{
    std::int64_t result = 0;
    for (int i = 0; i < args.size(); ++i) {
        result = std::gcd(result, std::int64_t{args.integer(i)});
    }
    return Value::integer(narrow(result));
}

Value lcm(World&, Args args)
{
    std::int64_t result = 1;
    for (int i = 0; i < args.size(); ++i) {
        // Wrapped at each step, so that the product below fits 64 bits.
        const std::int64_t next = std::abs(std::int64_t{args.integer(i)});
        const std::int64_t common = std::gcd(result, next);
        result = common == 0 ? 0 : std::abs(std::int64_t{narrow(result / common * next)});
    }
    return Value::integer(narrow(result));
}

Value logand(World&, Args args)
{
    std::int32_t result = args.size() == 0 ? 0 : -1;
    for (int i = 0; i < args.size(); ++i) result &= args.integer(i);
    return Value::integer(result);
}

Value logior(World&, Args args)
{
    std::int32_t result = 0;
    for (int i = 0; i < args.size(); ++i) result |= args.integer(i);
    return Value::integer(result);
}

Value lsh(World&, Args args)
{
    const auto bits = static_cast<std::uint32_t>(args.integer(0));
    const std::int32_t count = args.integer(1);
    if (count <= -32 || count >= 32) return Value::integer(0);
    return Value::integer(wrapped(count < 0 ? bits >> -count : bits << count));
}

Value boole(World&, Args args)
{
    const std::int32_t selector = args.integer(0);
    std::int32_t result = args.integer(1);
    for (int i = 2; i < args.size(); ++i) {
        const std::int32_t next = args.integer(i);
        std::int32_t bits = 0;
        if ((selector & 1) != 0) bits |= result & next;
        if ((selector & 2) != 0) bits |= result & ~next;
        if ((selector & 4) != 0) bits |= ~result & next;
        if ((selector & 8) != 0) bits |= ~result & ~next;
        result = bits;
    }
    return Value::integer(result);
}

Value invert(World&, Args args) { return Value::integer(~args.integer(0)); }

Value zerop(World& world, Args args) { return world.boolean(args.number(0) == 0.0); }
Value minusp(World& world, Args args) { return world.boolean(args.number(0) < 0.0); }
Value numberp(World& world, Args args) { return world.boolean(args[0].isNumber()); }

constexpr Builtin kTable[] = {
    {"+", add},
    {"-", subtract},
    {"*", multiply},
    {"/", divide},
    {"rem", rem},
    {"max", max},
    {"min", min},
    {"1+", increment, 1, 1},
    {"1-", decrement, 1, 1},
    {"abs", abs, 1, 1},
    {"fix", fix, 1, 1},
    {"float", toReal, 1, 1},
    {"sqrt", sqrt, 1, 1},
    {"exp", exp, 1, 1},
    {"log", log, 1, 1},
    {"expt", expt, 2, 2},
    {"sin", sin, 1, 1},
    {"cos", cos, 1, 1},
    {"atan", atan, 1, 2},
    {"gcd", gcd},
    {"lcm", lcm},
    {"logand", logand},
    {"logior", logior},
    {"lsh", lsh, 2, 2},
    {"boole", boole, 3},
    {"~", invert, 1, 1},
    {"zerop", zerop, 1, 1},
    {"minusp", minusp, 1, 1},
    {"numberp", numberp, 1, 1},
};

} // namespace

std::span<const Builtin> numberBuiltins() { return kTable; }

} // namespace orvald::lisp
