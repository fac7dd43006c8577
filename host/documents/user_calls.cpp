// SPDX-License-Identifier: LicenseRef-ORVALD
// The user's part of the host's interface: rules of the next input, progress.
#include "hostapi/user.h"

#include "document.h"
#include "host.h"
#include "hostapi/resbuf.h"

using namespace orvald;

extern "C" {

int acedInitGet(int bits, const ACHAR* keywords)
{
    Document* document = Host::instance().current();
    if (document == nullptr) return RTERROR;
    document->user().nextInput = {bits, Keywords(keywords == nullptr ? u"" : keywords)};
    return RTNORM;
}

int acedSetStatusBarProgressMeter(const ACHAR* label, int low, int high)
{
    Host::instance().console().meter().show(lisp::toUtf8(label == nullptr ? u"" : label), low,
                                            high);
    return 0;
}

int acedSetStatusBarProgressMeterPos(int position)
{
    return Host::instance().console().meter().move(position) ? 0 : -1;
}

void acedRestoreStatusBar() { Host::instance().console().meter().restore(); }
}
