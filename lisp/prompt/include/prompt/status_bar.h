// SPDX-License-Identifier: LicenseRef-ORVALD
// Progress in the host's status bar: a meter that a program moves, and one that runs by itself on a
// worker thread while something long is under way. At most one of each exists.
#pragma once

#include "hostapi/arxapp.h"
#include "kex/object.h"
#include "kex/text.h"

namespace KEX {

/// A meter in the status bar while the object lives. Making one stops a running animation.
class ACRX_EXPORT CAcadStatusBarProgress : public CKexObject
{
public:
    /// A null text is shown as "".
    CAcadStatusBarProgress(const ACHAR* text, int low, int high);
    ~CAcadStatusBarProgress() override { restore(); }

    void setPos(int position);
    /// Takes the meter away. A later object's meter stays, and a second call does nothing.
    void restore();

private:
    int low_, high_;
    int active_ = 1;
    unsigned serial_;
};

/// Puts a meter from 0 to 100 in the place of the present one.
void statusBarShow(const ACHAR* text);
/// Moves the present meter to a part of 1; does nothing without one.
void statusBarMove(double fraction);
/// Starts the animated meter unless it runs already.
void statusBarRun(const ACHAR* text, int milliseconds);
/// Ends the animation, waits for its thread, and drops the present meter.
void statusBarStop();

} // namespace KEX
