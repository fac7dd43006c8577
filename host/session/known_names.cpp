// SPDX-License-Identifier: LicenseRef-ORVALD
// What a session knows by name, for a user who types: symbols, functions, system variables.
#include "session_state.h"

#include "system_variable_table.h"
#include "text/letters.h"

#include <algorithm>
#include <limits>

namespace orvald {
namespace {

using lisp::FunctionShape;
using lisp::toUtf16;
using lisp::toUtf8;

// A value is shown, not a data base.
constexpr std::size_t kLongestValue = 300;

std::string lowerCase(std::u16string name)
{
    for (char16_t& unit : name) unit = text::lowerUnit(unit);
    return toUtf8(name);
}

std::string argumentCount(int least, int most)
{
    if (most == 0) return "no arguments";
    if (most < 0 && least == 0) return "any number of arguments";
    if (most < 0) return std::to_string(least) + " or more arguments";
    std::string count = std::to_string(least);
    if (least != most) count += " to " + std::to_string(most);
    return count + (most == 1 ? " argument" : " arguments");
}

std::string describeFunction(const std::string& name, const FunctionShape& shape)
{
    switch (shape.sort) {
    case FunctionShape::Sort::special: return "(" + name + " ...)   special form";
    case FunctionShape::Sort::builtin:
        return "(" + name + (shape.most == 0 ? ")   " : " ...)   ") +
               argumentCount(shape.least, shape.most);
    case FunctionShape::Sort::application: return "(" + name + " ...)   function of a module";
    case FunctionShape::Sort::program: break;
    }
    std::string line = "(defun " + name + " " +
                       (shape.parameters == u"nil" ? "()" : toUtf8(shape.parameters)) + " ...)";
    if (!shape.place.file.empty()) {
        line += "   " + shape.place.file + ":" + std::to_string(shape.place.line);
    }
    return line;
}

std::string describeVariable(const VariableRow& row)
{
    std::string line = "system variable: ";
    switch (row.type) {
    case VariableType::integer: line += "integer"; break;
    case VariableType::real: line += "real"; break;
    case VariableType::text: line += "text"; break;
    case VariableType::point2:
    case VariableType::point3: line += "point"; break;
    }
    using Limits = std::numeric_limits<std::int32_t>;
    if (row.type == VariableType::integer && row.least < row.most && row.least >= Limits::min() &&
        row.most < Limits::max()) {
        const auto whole = [](double value) { return std::to_string(static_cast<long>(value)); };
        line += " from " + whole(row.least) + " to " + whole(row.most);
    }
    return line + (row.readOnly ? ", read only" : "");
}

} // namespace

std::string FunctionLine::text() const
{
    std::string line = "(" + name + (arguments.empty() ? "" : "  " + arguments) + ")";
    if (!result.empty()) line += " -> " + result;
    if (!built) line += "   [not built]";
    return line;
}

std::vector<std::string> Session::symbols() const
{
    std::vector<std::string> names;
    state_->current().world().forEachBound(
        [&](std::u16string_view name, lisp::Value) { names.push_back(toUtf8(name)); });
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> Session::variables() const
{
    std::vector<std::string> names;
    for (const VariableRow& row : variableRows()) names.push_back(toUtf8(row.name));
    return names;
}

std::vector<std::string> Session::describe(const std::string& name)
{
    lisp::World& world = state_->current().world();
    const std::u16string units = toUtf16(name);
    const std::string shown = lowerCase(units);
    std::vector<std::string> lines;
    for (const FunctionLine& function : functions()) {
        if (function.name == shown) lines.push_back(function.text());
    }
    const lisp::Value value = world.symbolValue(units);
    if (const auto shape = world.shapeOf(value)) {
        const bool told = !lines.empty() && shape->sort == FunctionShape::Sort::application;
        if (!told) lines.push_back(describeFunction(shown, *shape));
    } else if (!value.isNil()) {
        std::u16string text = world.prin1(value);
        if (text.size() > kLongestValue) text.replace(kLongestValue, text.npos, u"...");
        lines.push_back(shown + " = " + toUtf8(text));
    }
    if (const VariableRow* row = findVariable(units)) {
        lines.push_back(describeVariable(*row));
        const Evaluation current = eval("(getvar \"" + shown + "\")");
        if (current.ok) lines.back() += ", now " + current.value;
    }
    return lines;
}

Work Session::work() const
{
    const lisp::WorkDone done = state_->current().world().workDone();
    return {done.allocated, done.collections};
}

} // namespace orvald
