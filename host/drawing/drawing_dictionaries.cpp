// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionaries of a drawing: who owns what is entered, and extension dictionaries.
#include "drawing/drawing.h"
#include "drawing/object_data.h"

#include <algorithm>

namespace orvald::drawing {

const Dictionary* Drawing::dictionary(Index index) const
{
    return index == kNone || at(index).erased ? nullptr : at(index).dictionary();
}

Index Drawing::dictionaryEntry(Index index, std::string_view key) const
{
    const Dictionary* entries = dictionary(index);
    const Dictionary::Entry* entry = entries == nullptr ? nullptr : entries->find(key);
    const Index object = entry == nullptr ? kNone : byHandle(entry->object);
    return object == kNone || at(object).erased ? kNone : object;
}

bool Drawing::addToDictionary(Index index, std::string_view key, Index object)
{
    Record& owner = edit(index);
    Dictionary& entries = *owner.needExtras().dictionary;
    const std::string name = key == "*" ? entries.anonymousKey() : std::string(key);
    const bool hard = owner.tags.integer(280) == 1;
    if (!entries.add(name, at(object).handle, hard)) return false;
    Record& entry = edit(object);
    entry.owner = owner.handle;
    std::vector<Handle>& reactors = entry.needExtras().reactors;
    if (std::find(reactors.begin(), reactors.end(), owner.handle) == reactors.end())
        reactors.push_back(owner.handle);
    return true;
}

bool Drawing::removeFromDictionary(Index index, std::string_view key)
{
    Record& owner = edit(index);
    const Dictionary::Entry* entry = owner.needExtras().dictionary->find(key);
    if (entry == nullptr) return false;
    const Index object = byHandle(entry->object);
    owner.needExtras().dictionary->remove(key);
    if (object != kNone) {
        Record& record = edit(object);
        if (record.owner == owner.handle) record.owner = 0;
        std::erase(record.needExtras().reactors, owner.handle);
        record.trimExtras();
    }
    return true;
}

Index Drawing::addDictionary(bool hardOwner) { return add(newDictionary(hardOwner)); }

Index Drawing::needExtensionDictionary(Index object)
{
    const Index known = byHandle(at(object).extensionDictionary());
    if (dictionary(known) != nullptr) return known;
    const Index made = addDictionary(true);
    edit(made).owner = at(object).handle;
    edit(object).needExtras().extensionDictionary = at(made).handle;
    return made;
}

bool Drawing::releaseExtensionDictionary(Index object)
{
    const Index known = byHandle(at(object).extensionDictionary());
    const Dictionary* entries = dictionary(known);
    if (entries != nullptr) {
        for (const Dictionary::Entry& entry : entries->entries()) {
            const Index held = byHandle(entry.object);
            if (held != kNone && !at(held).erased) return false;
        }
        setErased(known, true);
    }
    Record& record = edit(object);
    record.needExtras().extensionDictionary = 0;
    record.trimExtras();
    return true;
}

bool Drawing::standsIn(Index index, Index above) const
{
    for (int step = 0; index != kNone && step < kMostOwners; ++step) {
        if (index == above) return true;
        index = byHandle(at(index).owner);
    }
    return false;
}

} // namespace orvald::drawing
