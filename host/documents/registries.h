// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's name tables for applications: services, the system registry, running automation
// objects. Names compare without regard to case.
#pragma once

#include "hostapi/headless.h"
#include "hostapi/rx.h"

#include <map>
#include <string>
#include <string_view>

namespace orvald {

class ObjectDictionary final : public AcRxDictionary
{
public:
    AcRxObject* at(const ACHAR* key) const override;
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object) override;
    AcRxObject* remove(const ACHAR* key) override;
    bool has(const ACHAR* key) const { return at(key) != nullptr; }
    std::size_t size() const { return entries_.size(); }

private:
    std::map<std::u16string, AcRxObject*> entries_;
};

/// Objects that other programs may call, by program name.
class ActiveObjects
{
public:
    unsigned add(std::u16string_view progId, HostAutomationObject* object);
    bool remove(unsigned cookie);
    HostAutomationObject* find(std::u16string_view progId) const;

private:
    struct Entry
    {
        std::u16string progId;
        HostAutomationObject* object;
    };
    std::map<unsigned, Entry> entries_;
    unsigned lastCookie_ = 0;
};

} // namespace orvald
