// SPDX-License-Identifier: LicenseRef-ORVALD
#include "registries.h"

#include "text/letters.h"

#include <algorithm>

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

namespace {

/// Capitals, without a separator at the end.
std::u16string pathOf(std::u16string_view key)
{
    while (key.ends_with(u'\\')) key.remove_suffix(1);
    return text::upperText(key);
}

} // namespace

const SettingsTree::Data* SettingsTree::find(std::u16string_view key,
                                             std::u16string_view name) const
{
    const auto place = keys_.find(pathOf(key));
    if (place == keys_.end()) return nullptr;
    const auto value = place->second.values.find(text::upperText(name));
    return value == place->second.values.end() ? nullptr : &value->second.data;
}

void SettingsTree::makeKey(std::u16string_view key)
{
    while (key.ends_with(u'\\')) key.remove_suffix(1);
    keys_.try_emplace(pathOf(key), Key{std::u16string(key), {}});
}

void SettingsTree::set(std::u16string_view key, std::u16string_view name, Data data)
{
    makeKey(key);
    Value& value = keys_[pathOf(key)].values[text::upperText(name)];
    if (value.name.empty()) value.name = name;
    value.data = std::move(data);
}

bool SettingsTree::eraseValue(std::u16string_view key, std::u16string_view name)
{
    const auto place = keys_.find(pathOf(key));
    return place != keys_.end() && place->second.values.erase(text::upperText(name)) != 0;
}

bool SettingsTree::eraseKey(std::u16string_view key)
{
    const std::u16string path = pathOf(key), below = path + u'\\';
    return std::erase_if(keys_, [&](const auto& entry) {
               return entry.first == path || entry.first.starts_with(below);
           }) != 0;
}

std::vector<std::u16string> SettingsTree::valueNames(std::u16string_view key) const
{
    std::vector<std::u16string> names;
    const auto place = keys_.find(pathOf(key));
    if (place == keys_.end()) return names;
    for (const auto& [path, value] : place->second.values) names.push_back(value.name);
    return names;
}

std::vector<std::u16string> SettingsTree::keysBelow(std::u16string_view key) const
{
    const std::u16string below = pathOf(key) + u'\\';
    std::vector<std::u16string> names;
    for (const auto& [path, entry] : keys_) {
        if (!path.starts_with(below)) continue;
        const std::size_t end = std::min(path.find(u'\\', below.size()), path.size());
        std::u16string name = entry.path.substr(below.size(), end - below.size());
        if (names.empty() || text::upperText(names.back()) != text::upperText(name))
            names.push_back(std::move(name));
    }
    return names;
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
