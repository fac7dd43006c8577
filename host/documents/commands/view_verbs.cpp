// SPDX-License-Identifier: LicenseRef-ORVALD
// REGEN, REDRAW: drawing the screen anew takes the temporary graphics away.
#include "commands/verbs.h"
#include "document.h"

namespace orvald {
namespace {

// REGEN, REGENALL, REDRAW, REDRAWALL
Task<> redraw(Command& command)
{
    command.document().graphics().clear();
    co_return;
}

constexpr Verb kTable[] = {
    {u"REDRAW", redraw, true},
    {u"REDRAWALL", redraw, true},
    {u"REGEN", redraw, true},
    {u"REGENALL", redraw, true},
};

} // namespace

std::span<const Verb> viewVerbs() { return kTable; }

} // namespace orvald
