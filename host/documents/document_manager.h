// SPDX-License-Identifier: LicenseRef-ORVALD
// The documents as applications see them. The headless host has one context: the current document
// and the one with the focus are the same.
#pragma once

#include "hostapi/documents.h"
#include "hostapi/reactors.h"
#include "reactor_list.h"

namespace orvald {

class Host;

class DocumentManager final : public AcApDocManager
{
public:
    explicit DocumentManager(Host& host) : host_(host) {}
    /// The current document is about to be left: the reactors hear of it.
    void tellDeactivation();
    /// Takes out the reactors of an application that is gone.
    void forget(const Application& application) { reactors_.forget(application); }

    AcApDocument* document(const AcDbDatabase* database) const override;
    void addReactor(AcApDocManagerReactor* reactor) override
    {
        if (reactor != nullptr) reactors_.add(reactor);
    }
    void removeReactor(AcApDocManagerReactor* reactor) override { reactors_.remove(reactor); }
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
    ReactorList<AcApDocManagerReactor> reactors_;
};

} // namespace orvald
