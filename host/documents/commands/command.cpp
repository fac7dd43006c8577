// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/command.h"

#include "commands/selecting.h"
#include "document.h"
#include "lisp/units.h"
#include "typed_points.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace orvald {

using drawing::Point;

namespace {

/// Radians of one unit in which angles are typed (AUNITS).
double angleUnit(int mode)
{
    switch (mode) {
    case 2: return std::numbers::pi / 200.0;
    case 3: return 1.0;
    default: return std::numbers::pi / 180.0;
    }
}

double directionTo(Point from, Point to) { return std::atan2(to.y - from.y, to.x - from.x); }

} // namespace

drawing::Drawing& Command::drawing() { return document_.drawing(); }

PointWait Command::point(std::u16string_view prompt, std::u16string_view keywords)
{
    return {*this, prompt, keywords};
}
NumberWait Command::number(std::u16string_view prompt, std::u16string_view keywords)
{
    return {*this, prompt, keywords};
}
IntegerWait Command::integer(std::u16string_view prompt, std::u16string_view keywords)
{
    return {*this, prompt, keywords};
}
DistanceWait Command::distance(std::u16string_view prompt, std::u16string_view keywords,
                               std::optional<Point> base)
{
    return {*this, prompt, keywords, base};
}
AngleWait Command::angle(std::u16string_view prompt, std::u16string_view keywords,
                         std::optional<Point> base)
{
    return {*this, prompt, keywords, base, false};
}
AngleWait Command::direction(std::u16string_view prompt, std::u16string_view keywords,
                             std::optional<Point> base)
{
    return {*this, prompt, keywords, base, true};
}
EntityWait Command::entity(std::u16string_view prompt, std::u16string_view keywords)
{
    return {*this, prompt, keywords};
}
KeywordWait Command::option(std::u16string_view prompt, std::u16string_view keywords)
{
    return {*this, prompt, keywords};
}
TextWait Command::text(std::u16string_view prompt) { return {*this, prompt}; }
TokenWait Command::token(std::u16string_view prompt) { return {*this, prompt}; }
SelectionWait Command::selection() { return {*this, false}; }
SelectionWait Command::changeable() { return {*this, true}; }
SelectionWait Command::changeableOnce() { return {*this, true, true}; }

void Command::print(std::u16string_view line)
{
    document_.world().host().print(std::u16string(line) + u"\n");
}

bool Command::takesSnapWord(const Token& token)
{
    if (token.kind != Token::Kind::text || token.isEnter()) return false;
    const std::optional<SnapModes> modes = readSnapModes(token.text);
    if (modes) snap_ = modes;
    return modes.has_value();
}

std::optional<Point> Command::pointOf(const Token& token)
{
    std::optional<Point> point = token.point;
    if (token.kind == Token::Kind::text) point = pointFrom(document_, token.text, std::nullopt);
    else if (token.kind != Token::Kind::point) return std::nullopt;
    if (!point) return std::nullopt;
    if (const SnapModes modes = std::exchange(snap_, std::nullopt).value_or(0); modes != 0) {
        point = snapped(document_, *point, modes);
        if (!point) return std::nullopt;
    }
    document_.variables().setPoint(u"LASTPOINT", *point);
    return point;
}

std::optional<double> Command::numberOf(const Token& token)
{
    if (token.kind == Token::Kind::number) return token.number;
    if (token.kind != Token::Kind::text) return std::nullopt;
    return lisp::readDistance(trimmed(token.text), document_.variables().integer(u"LUNITS"));
}

std::optional<double> Command::angleOf(const Token& token)
{
    const TypedUnits units = typedUnits(document_.variables());
    if (token.kind == Token::Kind::number) {
        return token.number * angleUnit(units.angular) * (units.clockwise ? -1.0 : 1.0);
    }
    if (token.kind != Token::Kind::text) return std::nullopt;
    return readTurn(token.text, units);
}

bool Command::setReal(std::u16string_view variable, double value)
{
    resbuf node = {};
    node.restype = RTREAL;
    node.resval.rreal = value;
    return document_.variables().set(variable, node) == SystemVariables::Answer::done;
}

bool Command::setText(std::u16string_view variable, std::u16string_view value)
{
    std::u16string text(value); // a node has a place to write to
    resbuf node = {};
    node.restype = RTSTR;
    node.resval.rstring = text.data();
    return document_.variables().set(variable, node) == SystemVariables::Answer::done;
}

Taken PointWait::takeValue(const Token& token)
{
    if (command_.takesSnapWord(token)) return Taken::more;
    return take(command_.pointOf(token));
}

Taken NumberWait::takeValue(const Token& token) { return take(command_.numberOf(token)); }

Taken IntegerWait::takeValue(const Token& token)
{
    const bool number = token.kind == Token::Kind::number || token.kind == Token::Kind::text;
    return take(number ? readInteger(trimmed(token.text)) : std::nullopt);
}

Taken DistanceWait::takeValue(const Token& token)
{
    if (const auto number = command_.numberOf(token)) return take(number);
    if (command_.takesSnapWord(token)) return Taken::more;
    const std::optional<Point> point = command_.pointOf(token);
    if (!point) return Taken::refused;
    if (base_) return take(std::optional(length(*point - *base_)));
    base_ = point;
    return Taken::more;
}

Taken AngleWait::takeValue(const Token& token)
{
    const TypedUnits units = typedUnits(command_.document().variables());
    if (const auto angle = command_.angleOf(token)) {
        return take(std::optional(direction_ ? *angle + units.angleBase : *angle));
    }
    if (command_.takesSnapWord(token)) return Taken::more;
    const std::optional<Point> point = command_.pointOf(token);
    if (!point) return Taken::refused;
    if (base_) {
        const double toPoint = directionTo(*base_, *point);
        return take(std::optional(direction_ ? toPoint : toPoint - units.angleBase));
    }
    base_ = point;
    return Taken::more;
}

Taken EntityWait::takeValue(const Token& token)
{
    if (command_.takesSnapWord(token)) return Taken::more;
    return take(pickedBy(command_, token));
}

Taken TextWait::take(const Token& token)
{
    if (token.kind != Token::Kind::text && token.kind != Token::Kind::number) return Taken::refused;
    text_ = token.text;
    return Taken::done;
}

} // namespace orvald
