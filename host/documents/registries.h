// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's name tables for applications: services, the system registry, running automation
// objects. Names compare without regard to case.
#pragma once

#include "hostapi/headless.h"
#include "hostapi/rx.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

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

/// Named texts and numbers under keys like "HKEY_CURRENT_USER\\Software\\Tools"; a key's own value
/// has the name "".
class SettingsTree
{
public:
    using Data = std::variant<std::int32_t, std::u16string>;

    /// Null when there is none.
    const Data* find(std::u16string_view key, std::u16string_view name) const;
    void makeKey(std::u16string_view key);
    void set(std::u16string_view key, std::u16string_view name, Data data);
    /// False when there is none.
    bool eraseValue(std::u16string_view key, std::u16string_view name);
    /// Takes the keys below it along. False when there is none.
    bool eraseKey(std::u16string_view key);
    std::vector<std::u16string> valueNames(std::u16string_view key) const;
    /// Names, one level down, as they were first written.
    std::vector<std::u16string> keysBelow(std::u16string_view key) const;

private:
    struct Value
    {
        std::u16string name; // as written
        Data data;
    };
    struct Key
    {
        std::u16string path; // as written
        std::map<std::u16string, Value> values;
    };
    std::map<std::u16string, Key> keys_; // by path and name in capitals
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
