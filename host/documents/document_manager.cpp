// SPDX-License-Identifier: LicenseRef-ORVALD
#include "document_manager.h"

#include "database.h"
#include "document.h"
#include "host.h"

namespace orvald {

AcApDocument* DocumentManager::document(const AcDbDatabase* database) const
{
    return database == nullptr ? nullptr : host_.documentOf(Database::drawingOf(*database));
}

void DocumentManager::tellDeactivation()
{
    Document* const leaving = host_.current();
    if (leaving == nullptr) return;
    leaving->tellChanges();
    reactors_.call(u"documentToBeDeactivated",
                   [&](auto& reactor) { reactor.documentToBeDeactivated(leaving); });
}

AcApDocument* DocumentManager::curDocument() const { return host_.current(); }

AcApDocument* DocumentManager::mdiActiveDocument() const { return host_.current(); }

Acad::ErrorStatus DocumentManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                  bool)
{
    if (document == nullptr) return Acad::eNoDocument;
    if (mode != AcAp::kNone) {
        const Acad::ErrorStatus status = static_cast<Document*>(document)->lock(mode);
        if (status != Acad::eOk) return status;
    }
    host_.setCurrent(*static_cast<Document*>(document));
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                const ACHAR*, const ACHAR*, bool)
{
    return document == nullptr ? Acad::eNoDocument : static_cast<Document*>(document)->lock(mode);
}

Acad::ErrorStatus DocumentManager::unlockDocument(AcApDocument* document)
{
    return document == nullptr ? Acad::eNoDocument : static_cast<Document*>(document)->unlock();
}

} // namespace orvald
