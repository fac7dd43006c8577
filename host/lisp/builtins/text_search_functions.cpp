// SPDX-License-Identifier: LicenseRef-ORVALD
// Searching and replacing in strings: the rest of the vl-string family. Places count from 0.
#include "builtins/tables.h"

#include "characters.h"
#include "evaluator.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

// A start place that was given, brought into the text; a negative one is an error.
std::size_t startOf(World& world, Args args, int index, std::size_t length)
{
    if (args.at(index).isNil()) return 0;
    const std::int32_t start = args.integer(index);
    if (start < 0) world.raise(u"bad argument value: non-negative " + world.prin1(args[index]));
    return std::min(static_cast<std::size_t>(start), length);
}

Value placeOrNil(std::size_t place)
{
    return place == std::u16string_view::npos ? Value::nil()
                                              : Value::integer(static_cast<std::int32_t>(place));
}

// (vl-string-search pattern string [start])
Value search(World& world, Args args)
{
    const std::u16string_view text = args.string(1);
    return placeOrNil(text.find(args.string(0), startOf(world, args, 2, text.size())));
}

// (vl-string-position code string [start [from-end]]); from the end, start counts from the start
// all the same and bounds the search.
Value position(World& world, Args args)
{
    const std::int32_t code = args.integer(0);
    const std::u16string_view text = args.string(1);
    const std::size_t start = startOf(world, args, 2, text.size());
    if (code < 0 || code > 0xFFFF) return Value::nil();
    const auto unit = static_cast<char16_t>(code);
    if (args.at(3).isNil()) return placeOrNil(text.find(unit, start));
    const std::size_t place = text.rfind(unit);
    return place == std::u16string_view::npos || place < start ? Value::nil() : placeOrNil(place);
}

// (vl-string-subst new pattern string [start]): the first match only
Value substitute(World& world, Args args)
{
    const std::u16string_view pattern = args.string(1);
    std::u16string text(args.string(2));
    args.string(0);
    const std::size_t place = text.find(pattern, startOf(world, args, 3, text.size()));
    if (place == std::u16string::npos) return args[2];
    text.replace(place, pattern.size(), args.string(0));
    return world.makeString(text);
}

// (vl-string-translate source destination string): each source unit becomes its counterpart
Value translate(World& world, Args args)
{
    const std::u16string_view source = args.string(0);
    const std::u16string_view target = args.string(1);
    std::u16string text(args.string(2));
    for (char16_t& unit : text) {
        const std::size_t place = source.find(unit);
        if (place < target.size()) unit = target[place];
    }
    return world.makeString(text);
}

// (vl-string-mismatch a b [start-a [start-b [ignore-case]]]): length of the common beginning
Value mismatch(World& world, Args args)
{
    std::u16string_view a = args.string(0);
    std::u16string_view b = args.string(1);
    a.remove_prefix(startOf(world, args, 2, a.size()));
    b.remove_prefix(startOf(world, args, 3, b.size()));
    const bool ignoreCase = !args.at(4).isNil();
    std::size_t same = 0;
    while (same < a.size() && same < b.size() &&
           (a[same] == b[same] || (ignoreCase && text::upperUnit(a[same]) == text::upperUnit(b[same])))) {
        ++same;
    }
    return placeOrNil(same);
}

constexpr Builtin kTable[] = {
    {"vl-string-search", search, 2, 3},     {"vl-string-position", position, 2, 4},
    {"vl-string-subst", substitute, 3, 4},  {"vl-string-translate", translate, 3, 3},
    {"vl-string-mismatch", mismatch, 2, 5},
};

} // namespace

std::span<const Builtin> textSearchBuiltins() { return kTable; }

} // namespace orvald::lisp
