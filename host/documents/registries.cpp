// SPDX-License-Identifier: LicenseRef-ORVALD
#include "registries.h"

#include "text/letters.h"

namespace orvald {

AcRxObject* ObjectDictionary::at(const ACHAR* key) const
{
    if (key == nullptr) return nullptr;
    const auto entry = entries_.find(text::upperText(key));
    return entry == entries_.end() ? nullptr : entry->second;
}

AcRxObject* ObjectDictionary::atPut(const ACHAR* key, AcRxObject* object)
{
    if (key == nullptr) return nullptr;
    AcRxObject*& place = entries_[text::upperText(key)];
    AcRxObject* before = place;
    place = object;
    return before;
}

AcRxObject* ObjectDictionary::remove(const ACHAR* key)
{
    if (key == nullptr) return nullptr;
    const auto entry = entries_.find(text::upperText(key));
    if (entry == entries_.end()) return nullptr;
    AcRxObject* object = entry->second;
    entries_.erase(entry);
    return object;
}

unsigned ActiveObjects::add(std::u16string_view progId, HostAutomationObject* object)
{
    entries_.emplace(++lastCookie_, Entry{text::upperText(progId), object});
    return lastCookie_;
}

bool ActiveObjects::remove(unsigned cookie) { return entries_.erase(cookie) != 0; }

HostAutomationObject* ActiveObjects::find(std::u16string_view progId) const
{
    const std::u16string wanted = text::upperText(progId);
    for (const auto& [cookie, entry] : entries_) {
        if (entry.progId == wanted) return entry.object;
    }
    return nullptr;
}

} // namespace orvald
