// SPDX-License-Identifier: LicenseRef-ORVALD
// Input from the user: initget, the getXXX functions and picking entities. Points are in the user's
// coordinates.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing_functions.h"
#include "entity_list.h"
#include "host.h"
#include "lisp/units.h"
#include "prompt.h"
#include "registries.h"
#include "text/letters.h"
#include "typed_points.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvald {
namespace {

using drawing::ObjectId;
using drawing::Point;
using lisp::Args;
using lisp::Value;
using lisp::World;

constexpr int kNumberBits =
    InputRules::kNoEnter | InputRules::kNoZero | InputRules::kNoNegative | InputRules::kAnyText;
constexpr int kAngleBits = InputRules::kNoEnter | InputRules::kNoZero | InputRules::kAnyText;
constexpr int kPlainBits = InputRules::kNoEnter | InputRules::kAnyText;

/// Asks for the second one of two points; nothing but a point is an answer.
Point askSecondPoint(World& world, Point first)
{
    for (;;) {
        const std::u16string text = askLine(world, u"Specify second point: ");
        if (const auto point = pointFrom(Document::of(world), text, first)) return *point;
        complain(u"Invalid point.");
    }
}

/// True when the rules allow the number; else the complaint is filled in.
bool allows(const Question& question, double number, std::u16string& complaint)
{
    const bool zero = number == 0.0 && question.has(InputRules::kNoZero);
    const bool negative = number < 0.0 && question.has(InputRules::kNoNegative);
    if (zero) complaint = u"Value must be nonzero.";
    if (negative) complaint = u"Value must not be negative.";
    return !zero && !negative;
}

// (initget [bits] [keywords])
Value initget(World& world, Args args)
{
    InputRules rules;
    for (int i = 0; i < args.size(); ++i) {
        if (args[i].isInteger()) rules.bits = args.integer(i);
        else if (!args[i].isNil()) rules.keywords = Keywords(args.string(i));
    }
    Document::of(world).user().nextInput = std::move(rules);
    return Value::nil();
}

// (getint [prompt]) -> integer, keyword or nil
Value getint(World& world, Args args)
{
    Question question(world, promptOf(args), u"Enter an integer: ", kNumberBits);
    return question.ask(
        [&](std::u16string_view text, std::u16string& complaint) -> std::optional<Value> {
            complaint = u"Requires an integer between -32768 and 32767.";
            const std::optional<int> number = readInteger(text);
            if (!number || !allows(question, *number, complaint)) return std::nullopt;
            return Value::integer(*number);
        });
}

// (getreal [prompt]) -> real, keyword or nil
Value getreal(World& world, Args args)
{
    Question question(world, promptOf(args), u"Enter a number: ", kNumberBits);
    return question.ask(
        [&](std::u16string_view text, std::u16string& complaint) -> std::optional<Value> {
            complaint = u"Requires a number.";
            constexpr int kDecimal = 2;
            const std::optional<double> number = lisp::readDistance(text, kDecimal);
            if (!number || !allows(question, *number, complaint)) return std::nullopt;
            return Value::real(*number);
        });
}

// (getdist [base] [prompt]) -> real, keyword or nil
Value getdist(World& world, Args args)
{
    Document& document = Document::of(world);
    const Prompted prompted = readPrompted(args);
    Question question(world, prompted.prompt, u"Specify a distance: ",
                      kNumberBits | InputRules::kFlat);
    return question.ask(
        [&](std::u16string_view text, std::u16string& complaint) -> std::optional<Value> {
            complaint = u"Requires a distance or two points.";
            std::optional<double> number =
                lisp::readDistance(text, document.variables().integer(u"LUNITS"));
            if (!number) {
                const std::optional<Point> point = pointFrom(document, text, prompted.base);
                if (!point) return std::nullopt;
                Point across = prompted.base ? *point - *prompted.base
                                             : askSecondPoint(world, *point) - *point;
                if (question.has(InputRules::kFlat)) across.z = 0.0;
                number = length(across);
            }
            if (!allows(question, *number, complaint)) return std::nullopt;
            return Value::real(*number);
        });
}

/// Radians from 0 to below a full turn.
double fullTurn(double angle)
{
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const double rest = std::fmod(angle, kTurn);
    const double positive = rest < 0.0 ? rest + kTurn : rest;
    return positive < kTurn ? positive : 0.0; // a tiny negative rest rounds up to the whole turn
}

/// An angle from ANGBASE, or from the X axis when `absolute`.
Value askAngle(World& world, Args args, bool absolute)
{
    Document& document = Document::of(world);
    const TypedUnits units = typedUnits(document.variables());
    const Prompted prompted = readPrompted(args);
    Question question(world, prompted.prompt, u"Specify an angle: ", kAngleBits);
    return question.ask(
        [&](std::u16string_view text, std::u16string& complaint) -> std::optional<Value> {
            complaint = u"Requires an angle or two points.";
            std::optional<double> fromBase = readTurn(text, units);
            if (!fromBase) {
                const std::optional<Point> point = pointFrom(document, text, prompted.base);
                if (!point) return std::nullopt;
                const Point across = prompted.base ? *point - *prompted.base
                                                   : askSecondPoint(world, *point) - *point;
                fromBase = std::atan2(across.y, across.x) - units.angleBase;
            }
            const double angle = fullTurn(absolute ? *fromBase + units.angleBase : *fromBase);
            if (!allows(question, angle, complaint)) return std::nullopt;
            return Value::real(angle);
        });
}

// (getangle [base] [prompt]) -> radians from ANGBASE, keyword or nil
Value getangle(World& world, Args args) { return askAngle(world, args, false); }

// (getorient [base] [prompt]) -> radians from the X axis, keyword or nil
Value getorient(World& world, Args args) { return askAngle(world, args, true); }

Value askPoint(World& world, const Prompted& prompted, std::u16string_view ownPrompt)
{
    Question question(world, prompted.prompt, ownPrompt, kPlainBits);
    return question.ask(
        [&](std::u16string_view text, std::u16string& complaint) -> std::optional<Value> {
            complaint = u"Invalid point.";
            const auto point = pointFrom(Document::of(world), text, prompted.base);
            if (!point) return std::nullopt;
            return pointValue(world, *point);
        });
}

// (getpoint [base] [prompt]) -> point, keyword or nil
Value getpoint(World& world, Args args)
{
    return askPoint(world, readPrompted(args), u"Specify a point: ");
}

// (getcorner base [prompt]) -> point, keyword or nil
Value getcorner(World& world, Args args)
{
    args.point(0); // the base is owed
    return askPoint(world, readPrompted(args), u"Specify the opposite corner: ");
}

// (getkword [prompt]) -> keyword or nil
Value getkword(World& world, Args args)
{
    Question question(world, promptOf(args), u"Enter an option: ", kPlainBits);
    return question.ask([](std::u16string_view, std::u16string& complaint) {
        complaint = u"Invalid option keyword.";
        return std::optional<Value>();
    });
}

// (getstring [blanks] [prompt]) -> string; without `blanks` a blank ends the input
Value getstring(World& world, Args args)
{
    const int last = args.size() - 1;
    const bool hasPrompt = last >= 0 && args[last].isString();
    const bool blanks = args.size() - (hasPrompt ? 1 : 0) > 0 && !args[0].isNil();
    if (args.size() == 2) args.string(1);
    const std::u16string text =
        askLine(world, hasPrompt ? args.string(last) : std::u16string_view(u"Enter a text: "));
    if (blanks) return world.makeString(text);
    const std::size_t start = std::min(text.find_first_not_of(u' '), text.size());
    const std::size_t end = std::min(text.find(u' ', start), text.size());
    return world.makeString(std::u16string_view(text).substr(start, end - start));
}

// (getfiled title default extension flags) -> path or nil; flag 1 asks for a new file
Value getfiled(World& world, Args args)
{
    const std::u16string standard(args.string(1));
    std::u16string suffix(args.string(2));
    if (suffix.find_first_of(u";*") != std::u16string::npos) suffix.clear(); // any of several
    if (!suffix.empty()) suffix.insert(0, 1, u'.');
    const bool isNew = (args.integer(3) & 1) != 0;
    for (;;) {
        std::u16string name =
            askLine(world, std::u16string(args.string(0)) + u" <" + standard + u">: ");
        if (name.empty()) name = standard;
        if (name.empty()) return Value::nil();
        const std::size_t slash = name.find_last_of(u"/\\");
        const std::size_t dot = name.rfind(u'.');
        const bool hasSuffix =
            dot != std::u16string::npos && (slash == std::u16string::npos || dot > slash);
        if (!hasSuffix) name += suffix;
        if (isNew) return world.makeString(name);
        const std::string found = Host::instance().findFile(lisp::toUtf8(name));
        if (!found.empty()) return world.makeString(lisp::toUtf16(found));
        complain(u"File not found: " + name);
    }
}

// (grread [track [keys [cursor]]]) -> (3 point) for a point, (2 code) for a character or Enter
Value grread(World& world, Args)
{
    constexpr int kCharacter = 2, kPoint = 3, kEnter = 13;
    const std::u16string text = askLine(world, u"Point or character: ");
    if (const auto point = pointFrom(Document::of(world), text, std::nullopt)) {
        return world.makeList({Value::integer(kPoint), pointValue(world, *point)});
    }
    const int code = text.empty() ? kEnter : text.front();
    return world.makeList({Value::integer(kCharacter), Value::integer(code)});
}

constexpr lisp::Builtin kTable[] = {
    {"getangle", getangle, 0, 2},   {"getcorner", getcorner, 1, 2}, {"getdist", getdist, 0, 2},
    {"getfiled", getfiled, 4, 4},   {"getint", getint, 0, 1},       {"getkword", getkword, 0, 1},
    {"getorient", getorient, 0, 2}, {"getpoint", getpoint, 0, 2},   {"getreal", getreal, 0, 1},
    {"getstring", getstring, 0, 2}, {"grread", grread, 0, 3},       {"initget", initget, 0, 2},
};

} // namespace

std::span<const lisp::Builtin> inputFunctions() { return kTable; }

} // namespace orvald
