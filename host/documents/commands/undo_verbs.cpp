// SPDX-License-Identifier: LicenseRef-ORVALD
// UNDO, U and REDO: the document's journal as a user drives it. While an object of the drawing is
// open they only say so: it must not become another one under its user's hands.
#include "commands/verbs.h"
#include "document.h"
#include "host.h"
#include "open_objects.h"

namespace orvald {
namespace {

void checkClosed(Command& command)
{
    if (Host::instance().openObjects().anyOf(command.drawing())) {
        command.refuse(u"objects of the drawing are open");
    }
}

void undoSteps(Command& command, int steps)
{
    const auto count = static_cast<std::size_t>(steps);
    if (command.drawing().journal().undo(count) < count) {
        command.print(u"Everything has been undone.");
    }
}

// ... Back: everything at once is never meant silently
Task<> back(Command& command)
{
    if (!command.drawing().journal().hasMark()) {
        const Answer<NoValue> sure =
            co_await command.option(u"This will undo everything. OK? <Y>: ", u"Yes No");
        if (sure.is(u"No")) co_return;
    }
    checkClosed(command);
    command.drawing().journal().back();
}

// UNDO number|Auto x|Control x|Begin|End|Mark|Back [Yes|No]; Begin and End nest, Auto and Control
// change nothing
Task<> undo(Command& command)
{
    checkClosed(command);
    const Answer<int> steps = co_await command.integer(
        u"Enter the number of operations to undo or [Auto/Control/BEgin/End/Mark/Back] <1>: ",
        u"Auto Control BEgin Group End Mark BAck Back");
    drawing::Journal& journal = command.drawing().journal();
    if (steps && *steps <= 0) command.refuse(u"a number of operations is greater than 0");
    if (steps || steps.isEnter()) undoSteps(command, steps.value.value_or(1));
    else if (steps.is(u"BEgin") || steps.is(u"Group")) journal.beginGroup();
    else if (steps.is(u"End")) journal.endGroup();
    else if (steps.is(u"Mark")) journal.mark();
    else if (steps.is(u"BAck") || steps.is(u"Back")) co_await back(command);
    else co_await command.text(u"Enter an option: ");
}

// U
Task<> undoLast(Command& command)
{
    checkClosed(command);
    undoSteps(command, 1);
    co_return;
}

// REDO
Task<> redo(Command& command)
{
    checkClosed(command);
    if (!command.drawing().journal().redo()) command.print(u"There is nothing to redo.");
    co_return;
}

constexpr Verb kTable[] = {
    {u"REDO", redo, true},
    {u"U", undoLast, true},
    {u"UNDO", undo, true},
};

} // namespace

std::span<const Verb> undoVerbs() { return kTable; }

} // namespace orvald
