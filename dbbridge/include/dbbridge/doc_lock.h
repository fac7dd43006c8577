// SPDX-License-Identifier: LicenseRef-ORVALD
// CDocLock: the lock of the current document for a scope, which writing from outside a command
// needs.
#pragma once

#include "hostapi/arxapp.h"
#include "hostapi/documents.h"

namespace KEX {

class ACRX_EXPORT CDocLock
{
public:
    /// Locks the current document for write.
    CDocLock();
    /// Locks it as a command of that name does; undo shows the name.
    explicit CDocLock(const ACHAR* command);
    // kept: a copy has the status too, and unlocks as well
    CDocLock(const CDocLock&) = default;
    CDocLock& operator=(const CDocLock&) = default;
    /// Unlocks when the locking succeeded.
    virtual ~CDocLock();

    /// How the locking went; eNoDocument when none is open.
    Acad::ErrorStatus status() const { return status_; }

private:
    AcApDocument* document_;
    Acad::ErrorStatus status_;
};

} // namespace KEX
