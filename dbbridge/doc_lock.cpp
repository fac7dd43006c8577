// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dbbridge/doc_lock.h"

namespace KEX {

CDocLock::CDocLock()
    : document_(acDocManager->curDocument()),
      status_(acDocManager->lockDocument(document_, AcAp::kWrite, nullptr, nullptr, true))
{
}

CDocLock::CDocLock(const ACHAR* command)
    : document_(acDocManager->curDocument()),
      status_(acDocManager->lockDocument(document_, AcAp::kAutoWrite, command, command, true))
{
}

CDocLock::~CDocLock()
{
    if (status_ == Acad::eOk) status_ = acDocManager->unlockDocument(document_);
}

} // namespace KEX
