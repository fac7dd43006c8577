// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers to text and back. The settings that a call leaves out come from the host's variables.
#include "builtins/tables.h"

#include "characters.h"
#include "evaluator.h"
#include "number_text.h"

#include "lisp/units.h"

#include <limits>

namespace orvald::lisp {

namespace {

UnitSettings settingsOf(World& world)
{
    UnitSettings settings;
    const auto read = [&](std::u16string_view name, int& place) {
        const auto value = world.host().systemVariable(name);
        if (value && value->isInteger()) place = value->asInteger();
    };
    read(u"LUNITS", settings.linearUnits);
    read(u"LUPREC", settings.linearPrecision);
    read(u"AUNITS", settings.angularUnits);
    read(u"AUPREC", settings.angularPrecision);
    read(u"UNITMODE", settings.unitMode);
    read(u"DIMZIN", settings.zeroSuppression);
    return settings;
}

int integerOr(Args args, int index, int otherwise)
{
    return args.at(index).isNil() ? otherwise : args.integer(index);
}

Value itoa(World& world, Args args) { return world.makeString(integerText(args.integer(0))); }

Value atoi(World&, Args args)
{
    std::u16string_view text = args.string(0);
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);
    std::int64_t value = 0;
    for (; !text.empty() && text::isDigit(text.front()); text.remove_prefix(1)) {
        value = value * 10 + (text.front() - u'0');
        if (value > std::numeric_limits<std::int32_t>::max()) {
            value = std::numeric_limits<std::int32_t>::max();
        }
    }
    return Value::integer(static_cast<std::int32_t>(negative ? -value : value));
}

Value atof(World&, Args args) { return Value::real(leadingReal(args.string(0))); }

Value rtos(World& world, Args args)
{
    const UnitSettings settings = settingsOf(world);
    return world.makeString(distanceText(args.number(0), integerOr(args, 1, settings.linearUnits),
                                         integerOr(args, 2, settings.linearPrecision), settings));
}

Value angtos(World& world, Args args)
{
    const UnitSettings settings = settingsOf(world);
    return world.makeString(angleText(args.number(0), integerOr(args, 1, settings.angularUnits),
                                      integerOr(args, 2, settings.angularPrecision), settings));
}

Value realOrNil(const std::optional<double>& value)
{
    return value ? Value::real(*value) : Value::nil();
}

Value distof(World& world, Args args)
{
    return realOrNil(
        readDistance(args.string(0), integerOr(args, 1, settingsOf(world).linearUnits)));
}

Value angtof(World& world, Args args)
{
    return realOrNil(readAngle(args.string(0), integerOr(args, 1, settingsOf(world).angularUnits)));
}

constexpr Builtin kTable[] = {
    {"itoa", itoa, 1, 1},     {"atoi", atoi, 1, 1},     {"atof", atof, 1, 1},
    {"rtos", rtos, 1, 3},     {"angtos", angtos, 1, 3}, {"distof", distof, 1, 2},
    {"angtof", angtof, 1, 2},
};

} // namespace

std::span<const Builtin> conversionBuiltins() { return kTable; }

} // namespace orvald::lisp
