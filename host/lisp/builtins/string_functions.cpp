// SPDX-License-Identifier: LicenseRef-ORVALD
// Strings: joining, parts, case, characters. Lengths and places are UTF-16 units; substr counts
// from 1, the vl-string family from 0.
#include "builtins/tables.h"

#include "characters.h"
#include "evaluator.h"

#include "text/wildcard.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

Value strcat(World& world, Args args)
{
    if (args.size() == 0) return world.makeString({});
    for (int i = 0; i < args.size(); ++i) args.string(i);
    return args.size() == 1 ? args[0]
                            : evaluatorOf(world).heap.concatenate(args.all().data(), args.size());
}

Value strlen(World&, Args args)
{
    std::size_t length = 0;
    for (int i = 0; i < args.size(); ++i) length += args.string(i).size();
    return Value::integer(static_cast<std::int32_t>(length));
}

Value substr(World& world, Args args)
{
    const std::u16string_view text = args.string(0);
    const std::int32_t start = args.integer(1);
    if (start < 1) world.raise(u"bad argument value: positive " + world.prin1(args[1]));
    std::size_t count = text.size();
    if (args.size() == 3) {
        if (args.integer(2) < 0)
            world.raise(u"bad argument value: non-negative " + world.prin1(args[2]));
        count = static_cast<std::size_t>(args.integer(2));
    }
    const auto from = std::min(static_cast<std::size_t>(start) - 1, text.size());
    return world.makeString(text.substr(from, count));
}

Value strcase(World& world, Args args)
{
    std::u16string text(args.string(0));
    const bool lower = !args.at(1).isNil();
    for (char16_t& unit : text) unit = lower ? text::lowerUnit(unit) : text::upperUnit(unit);
    return world.makeString(text);
}

void appendCode(World& world, std::u16string& text, Value code)
{
    const std::int32_t number = code.isInteger() ? code.asInteger() : -1;
    if (number < 0 || number > 0x10FFFF) world.badArgument("characterp", code);
    text::appendUtf16(text, static_cast<char32_t>(number));
}

// Code of the character at `at`, which moves behind it; a surrogate pair counts as one.
Value codeAt(std::u16string_view text, std::size_t& at)
{
    return Value::integer(static_cast<std::int32_t>(text::decodeUtf16(text, at)));
}

Value ascii(World&, Args args)
{
    const std::u16string_view text = args.string(0);
    std::size_t at = 0;
    return text.empty() ? Value::integer(0) : codeAt(text, at);
}

Value chr(World& world, Args args)
{
    std::u16string text;
    args.integer(0);
    appendCode(world, text, args[0]);
    if (text == std::u16string_view(u"\0", 1)) text.clear();
    return world.makeString(text);
}

Value wcmatch(World& world, Args args)
{
    return world.boolean(text::matchesWildcard(args.string(0), args.string(1)));
}

Value stringToList(World& world, Args args)
{
    const std::u16string_view text = args.string(0);
    ListBuilder codes(world);
    for (std::size_t at = 0; at < text.size();) codes.add(codeAt(text, at));
    return codes.list();
}

Value listToString(World& world, Args args)
{
    std::u16string text;
    for (Value rest = args.list(0); rest.isCons(); rest = rest.asCons()->cdr) {
        appendCode(world, text, rest.asCons()->car);
    }
    return world.makeString(text);
}

Value elt(World& world, Args args)
{
    const std::u16string_view text = args.string(0);
    const std::int32_t index = args.integer(1);
    if (index < 0 || static_cast<std::size_t>(index) >= text.size()) {
        world.raise(u"bad argument value: index out of range " + world.prin1(args[1]));
    }
    auto at = static_cast<std::size_t>(index);
    return codeAt(text, at);
}

// The characters between the first and last that are not in `set`.
std::u16string_view trimmed(std::u16string_view text, std::u16string_view set, bool left,
                            bool right)
{
    if (left) text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
    if (right) text = text.substr(0, text.find_last_not_of(set) + 1);
    return text;
}

Value trimLeft(World& world, Args args)
{
    return world.makeString(trimmed(args.string(1), args.string(0), true, false));
}

Value trimRight(World& world, Args args)
{
    return world.makeString(trimmed(args.string(1), args.string(0), false, true));
}

Value trim(World& world, Args args)
{
    return world.makeString(trimmed(args.string(1), args.string(0), true, true));
}

constexpr Builtin kTable[] = {
    {"strcat", strcat},
    {"strlen", strlen},
    {"substr", substr, 2, 3},
    {"strcase", strcase, 1, 2},
    {"ascii", ascii, 1, 1},
    {"chr", chr, 1, 1},
    {"wcmatch", wcmatch, 2, 2},
    {"vl-string->list", stringToList, 1, 1},
    {"vl-list->string", listToString, 1, 1},
    {"vl-string-elt", elt, 2, 2},
    {"vl-string-trim", trim, 2, 2},
    {"vl-string-left-trim", trimLeft, 2, 2},
    {"vl-string-right-trim", trimRight, 2, 2},
};

} // namespace

std::span<const Builtin> stringBuiltins() { return kTable; }

} // namespace orvald::lisp
