// SPDX-License-Identifier: LicenseRef-ORVALD
// The documents as applications see them. The headless host has one context: the current document
// and the one with the focus are the same.
#pragma once

#include "hostapi/documents.h"

namespace orvald {

class Host;

class DocumentManager final : public AcApDocManager
{
public:
    explicit DocumentManager(Host& host) : host_(host) {}
    AcApDocument* curDocument() const override;
    AcApDocument* mdiActiveDocument() const override;
    Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                     bool activate) override;
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                   const ACHAR* globalName, const ACHAR* localName,
                                   bool prompt) override;
    Acad::ErrorStatus unlockDocument(AcApDocument* document) override;

private:
    Host& host_;
};

} // namespace orvald
