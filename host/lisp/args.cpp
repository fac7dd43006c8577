// SPDX-License-Identifier: LicenseRef-ORVALD
// Arguments of a builtin, each read with the language's own error for a wrong type.
#include "objects.h"

#include "lisp/world.h"

namespace orvald::lisp {

std::int32_t Args::integer(int index) const
{
    const Value value = at(index);
    if (!value.isInteger()) world_.badArgument("fixnump:", value);
    return value.asInteger();
}

double Args::number(int index) const
{
    const Value value = at(index);
    if (!value.isNumber()) world_.badArgument("numberp:", value);
    return value.asNumber();
}

std::u16string_view Args::string(int index) const
{
    const Value value = at(index);
    if (!lisp::isString(value)) world_.badArgument("stringp", value);
    return stringOf(value);
}

Value Args::list(int index) const
{
    const Value value = at(index);
    if (!value.isList()) world_.badArgument("listp", value);
    return value;
}

Symbol* Args::symbol(int index) const
{
    const Value value = at(index);
    if (!value.isSymbol()) world_.badArgument("symbolp", value);
    return value.asSymbol();
}

std::uint64_t Args::entity(int index) const
{
    const Value value = at(index);
    if (!value.isEntity()) world_.badArgument("lentityp", value);
    return value.asEntity();
}

Args::Point Args::point(int index) const
{
    const Value value = at(index);
    Point point{0.0, 0.0, 0.0, 0};
    double* const coordinates[] = {&point.x, &point.y, &point.z};
    Value rest = value;
    for (; rest.isCons() && point.dimensions < 3; rest = rest.asCons()->cdr) {
        if (!rest.asCons()->car.isNumber()) break;
        *coordinates[point.dimensions++] = rest.asCons()->car.asNumber();
    }
    if (!rest.isNil() || point.dimensions < 2) world_.badArgument("2D/3D point:", value);
    return point;
}

} // namespace orvald::lisp
