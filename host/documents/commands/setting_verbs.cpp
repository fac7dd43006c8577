// SPDX-License-Identifier: LicenseRef-ORVALD
// SETVAR and the commands that set what one or two system variables hold.
#include "commands/making.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/text.h"
#include "system_variable_table.h"
#include "text/letters.h"
#include "typed_values.h"

#include <cmath>

namespace orvald {
namespace {

using drawing::Point;
using drawing::TableId;

/// The value of a variable as a token means it, in the type that the variable has.
bool setFrom(Command& command, std::u16string_view variable, const Token& token)
{
    SystemVariables& variables = command.document().variables();
    resbuf value = {};
    if (variables.get(variable, value) != SystemVariables::Answer::done) return false;
    if (value.restype == RTSTR) {
        acutDelString(value.resval.rstring);
        return command.setText(variable, token.text);
    }
    if (value.restype == RTPOINT || value.restype == RT3DPOINT) {
        const std::optional<Point> point = command.pointOf(token);
        if (!point) return false;
        value.resval.rpoint[0] = point->x;
        value.resval.rpoint[1] = point->y;
        value.resval.rpoint[2] = point->z;
    } else if (value.restype == RTREAL) {
        const bool angle =
            text::upperText(variable) == u"ANGBASE" || text::upperText(variable) == u"SNAPANG";
        const auto number = angle ? command.angleOf(token) : command.numberOf(token);
        if (!number) return false;
        value.resval.rreal = *number;
    } else {
        const std::optional<double> number = command.numberOf(token);
        constexpr double kMost = 2147483647.0;
        if (!number || *number != std::trunc(*number) || std::abs(*number) > kMost) return false;
        value.restype = RTLONG;
        value.resval.rlong = static_cast<Adesk_Int32>(*number);
    }
    return variables.set(variable, value) == SystemVariables::Answer::done;
}

Task<> askValue(Command& command, std::u16string name)
{
    const Token value = co_await command.token(u"Enter new value: ");
    if (value.isEnter()) co_return; // stays as it is; "." is the empty text
    Token given = value;
    if (given.text == u".") given.text.clear();
    if (!setFrom(command, name, given)) command.refuse(name + u" does not take this value");
}

// SETVAR name value
Task<> setvar(Command& command)
{
    const std::u16string name =
        text::upperText(co_await command.text(u"Enter variable name or [?]: "));
    resbuf value = {};
    if (command.document().variables().get(name, value) != SystemVariables::Answer::done) {
        command.refuse(name + u" is not a variable");
    }
    if (value.restype == RTSTR) acutDelString(value.resval.rstring);
    co_await askValue(command, name);
}

// COLOR colour
Task<> colour(Command& command)
{
    const std::u16string value = co_await command.text(u"Enter default object color: ");
    const std::optional<int> number = readColour(value);
    if (value.empty()) co_return;
    if (!number) command.refuse(value + u" is not a colour");
    const std::u16string name = *number == 0     ? u"BYBLOCK"
                                : *number == 256 ? u"BYLAYER"
                                                 : drawing::text16(std::to_string(*number));
    command.setText(u"CECOLOR", name);
}

// LINETYPE Set name, Load names file, up to Enter; linetypes that the drawing has count as loaded
Task<> linetype(Command& command)
{
    for (;;) {
        const Answer<NoValue> option =
            co_await command.option(u"Enter an option [?/Create/Load/Set]: ", u"? Create Load Set");
        if (option.isEnter()) co_return;
        if (option.is(u"Set")) {
            const std::u16string name = co_await command.text(u"Specify linetype name: ");
            if (!name.empty() && !command.setText(u"CELTYPE", name)) {
                command.refuse(u"there is no linetype " + name);
            }
        } else if (option.is(u"Load")) {
            const std::u16string name = co_await command.text(u"Enter linetype(s) to load: ");
            const bool known = command.drawing().findRecord(
                                   TableId::ltype, drawing::fileForm(name)) != drawing::kNone;
            co_await command.text(u"Enter name of linetype file to search: ");
            if (!known) command.refuse(u"linetype files are not available in this host");
            // The program may answer whether the known one shall be loaded again.
        } else {
            command.refuse(u"this option is not available in this host");
        }
    }
}

// ELEV elevation thickness
Task<> elevation(Command& command)
{
    const Answer<double> height = co_await command.distance(u"Specify new default elevation: ");
    if (height) command.setReal(u"ELEVATION", *height);
    const Answer<double> thickness = co_await command.distance(u"Specify new default thickness: ");
    if (thickness) command.setReal(u"THICKNESS", *thickness);
}

// STYLE name font height width oblique backwards upside-down [vertical]
Task<> style(Command& command)
{
    const std::u16string name = co_await command.text(u"Enter name of text style: ");
    if (name.empty()) co_return;
    drawing::Drawing& drawing = command.drawing();
    drawing::Index record = drawing.findRecord(TableId::style, drawing::fileForm(name));
    if (record == drawing::kNone) {
        Groups made = newRecord(u"STYLE", u"AcDbTextStyleTableRecord", name);
        made.real(40, 0.0).real(41, 1.0).real(50, 0.0).integer(71, 0).real(42, 2.5);
        record = made.text(3, u"txt").text(4, u"").make(command);
    }
    const std::u16string font = co_await command.text(u"Specify full font name or file name: ");
    const Answer<double> height = co_await command.distance(u"Specify height of text: ");
    const Answer<double> width = co_await command.number(u"Specify width factor: ");
    const Answer<double> oblique = co_await command.angle(u"Specify obliquing angle: ");
    const Answer<NoValue> backward =
        co_await command.option(u"Display text backwards? [Yes/No]: ", u"Yes No");
    const Answer<NoValue> upsideDown =
        co_await command.option(u"Display text upside-down? [Yes/No]: ", u"Yes No");
    Groups change = changeOf(command, record);
    if (!font.empty()) change.text(3, font);
    if (height) change.real(40, *height);
    if (width) change.real(41, *width);
    if (oblique) change.real(50, *oblique);
    const int flags = (backward.is(u"Yes") ? 2 : 0) | (upsideDown.is(u"Yes") ? 4 : 0);
    if (!change.integer(71, flags).apply(command))
        command.refuse(u"a style does not take these values");
    command.setText(u"TEXTSTYLE", name);
    // Only fonts of strokes are asked for being vertical.
    const std::u16string file = text::upperText(font);
    if (file.find(u'.') == std::u16string::npos || file.ends_with(u".SHX")) {
        co_await command.option(u"Vertical? [Yes/No] <N>: ", u"Yes No");
    }
}

// LIMITS ON|OFF|corner corner
Task<> limits(Command& command)
{
    SystemVariables& variables = command.document().variables();
    const Answer<Point> lower =
        co_await command.point(u"Specify lower left corner or [ON/OFF]: ", u"ON OFF");
    if (lower.is(u"ON") || lower.is(u"OFF")) {
        resbuf value = {};
        value.restype = RTSHORT;
        value.resval.rint = lower.is(u"ON") ? 1 : 0;
        variables.set(u"LIMCHECK", value);
        co_return;
    }
    if (lower) variables.setPoint(u"LIMMIN", {lower->x, lower->y});
    const Answer<Point> upper = co_await command.point(u"Specify upper right corner: ");
    if (upper) variables.setPoint(u"LIMMAX", {upper->x, upper->y});
}

constexpr Verb kTable[] = {
    {u"COLOR", colour},      {u"COLOUR", colour}, {u"ELEV", elevation}, {u"LIMITS", limits},
    {u"LINETYPE", linetype}, {u"SETVAR", setvar}, {u"STYLE", style},
};

} // namespace

std::span<const Verb> settingVerbs() { return kTable; }

std::optional<Verb> variableVerb(std::u16string_view variable)
{
    const VariableRow* row = findVariable(variable);
    if (row == nullptr) return std::nullopt;
    const auto ask = [](Command& command) {
        return askValue(command, std::u16string(command.name()));
    };
    return Verb{row->name, ask};
}

} // namespace orvald
