// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/living_ends.h"

#include "drawing/drawing.h"

namespace orvald::drawing {

Index LivingEnds::first(const Drawing& drawing, Index owner)
{
    Runs& runs = runs_[owner];
    Index at = runs.frontEnd == kNone ? drawing.firstChild(owner) : drawing.next(runs.frontEnd);
    for (; at != kNone && drawing.at(at).erased; at = drawing.next(at)) runs.frontEnd = at;
    return at;
}

Index LivingEnds::last(const Drawing& drawing, Index owner)
{
    Runs& runs = runs_[owner];
    const Index end = drawing.lastChild(owner);
    Index start = kNone;
    Index at = end;
    while (at != kNone && drawing.at(at).erased) {
        start = at == runs.backEnd ? runs.backStart : at;
        at = drawing.previous(start);
    }
    if (start != kNone) runs.backStart = start, runs.backEnd = end;
    return at;
}

} // namespace orvald::drawing
