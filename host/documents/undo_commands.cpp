// SPDX-License-Identifier: LicenseRef-ORVALD
#include "undo_commands.h"

#include "document.h"
#include "drawing/text.h"
#include "host.h"
#include "open_objects.h"
#include "text/letters.h"

#include <charconv>

namespace orvald {
namespace {

enum class Option
{
    automatic,
    control,
    begin,
    back,
    end,
    mark
};
struct OptionName
{
    std::u16string_view name;
    std::size_t least; // characters that must be typed
    Option option;
};
constexpr OptionName kOptions[] = {
    {u"AUTO", 1, Option::automatic}, {u"CONTROL", 1, Option::control}, {u"BEGIN", 2, Option::begin},
    {u"GROUP", 1, Option::begin},    {u"BACK", 1, Option::back},       {u"END", 1, Option::end},
    {u"MARK", 1, Option::mark},
};

std::optional<Option> optionOf(std::u16string_view typed)
{
    while (typed.starts_with(u'_')) typed.remove_prefix(1);
    const std::u16string word = text::upperText(typed);
    for (const OptionName& option : kOptions)
        if (word.size() >= option.least && option.name.starts_with(word)) return option.option;
    return std::nullopt;
}

/// A number of steps; nothing for other text.
std::optional<std::size_t> stepsOf(std::u16string_view typed)
{
    const std::string digits = drawing::utf8(typed);
    std::size_t steps = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), steps);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && steps > 0 ? std::optional(steps) : std::nullopt;
}

void undoSteps(Document& document, std::size_t steps)
{
    if (document.drawing().journal().undo(steps) < steps)
        document.world().host().print(u"Everything has been undone.\n");
}

void back(Document& document, const NextTyped& next)
{
    drawing::Journal& journal = document.drawing().journal();
    if (!journal.hasMark()) {
        // Everything at once is never meant silently.
        const std::optional<std::u16string> answer = next();
        const bool yes = answer && (answer->empty() || text::upperText(*answer).find(u'Y') <= 1);
        if (!yes) {
            document.world().host().print(u"UNDO: there is no mark.\n");
            return;
        }
    }
    journal.back();
}

void undo(Document& document, const NextTyped& next)
{
    const std::optional<std::u16string> typed = next();
    if (typed && typed->empty()) return undoSteps(document, 1);
    if (const auto steps = stepsOf(typed.value_or(u""))) return undoSteps(document, *steps);
    const std::optional<Option> option = optionOf(typed.value_or(u""));
    if (!option || !typed) {
        document.world().host().print(u"UNDO: a number or an option is wanted.\n");
        return;
    }
    drawing::Journal& journal = document.drawing().journal();
    switch (*option) {
    case Option::automatic:
    case Option::control: next(); break;
    case Option::begin: journal.beginGroup(); break;
    case Option::end: journal.endGroup(); break;
    case Option::mark: journal.mark(); break;
    case Option::back: back(document, next); break;
    }
}

} // namespace

bool runUndoCommand(Document& document, std::u16string_view name, const NextTyped& next)
{
    if (name != u"UNDO" && name != u"U" && name != u"REDO") return false;
    // An object that somebody holds open must not become another one under his hands.
    if (Host::instance().openObjects().anyOf(document.drawing())) {
        document.world().host().print(u"UNDO: objects of the drawing are open.\n");
        return true;
    }
    if (name == u"UNDO") undo(document, next);
    else if (name == u"U") undoSteps(document, 1);
    else if (!document.drawing().journal().redo())
        document.world().host().print(u"There is nothing to redo.\n");
    document.tellChanges();
    return true;
}

} // namespace orvald
