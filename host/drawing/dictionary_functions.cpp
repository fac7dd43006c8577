// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionaries as programs see them.
#include "chain.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"

namespace orvald::drawing {

ObjectId EntityFunctions::namedObjDict() const { return drawing_.idOf(drawing_.rootDictionary()); }

ErrNo EntityFunctions::dictSearch(ObjectId dictionary, std::u16string_view key, bool setNext,
                                  resbuf*& chain)
{
    chain = nullptr;
    const std::string form = fileForm(key);
    const Index object = drawing_.dictionaryEntry(drawing_.indexOf(dictionary), form);
    if (object == kNone) return ErrNo::badName;
    if (setNext) dictionaryWalk_ = {dictionary, form, false};
    return entGet(drawing_.idOf(object), nullptr, chain);
}

ErrNo EntityFunctions::dictNext(ObjectId id, bool rewind, resbuf*& chain)
{
    chain = nullptr;
    const Dictionary* entries = drawing_.dictionary(drawing_.indexOf(id));
    if (entries == nullptr) return ErrNo::badName;
    if (rewind || dictionaryWalk_.dictionary != id) dictionaryWalk_ = {id, {}, false};
    const Dictionary::Entry* entry = nullptr;
    while (!dictionaryWalk_.done) {
        // The walk goes on by key, so that it survives changes of the dictionary.
        entry =
            dictionaryWalk_.last.empty() ? entries->first() : entries->after(dictionaryWalk_.last);
        if (entry == nullptr) {
            dictionaryWalk_.done = true;
            break;
        }
        dictionaryWalk_.last = entry->key;
        const Index object = drawing_.byHandle(entry->object);
        if (object != kNone && !drawing_.at(object).erased)
            return entGet(drawing_.idOf(object), nullptr, chain);
    }
    return ErrNo::none;
}

ErrNo EntityFunctions::dictAdd(ObjectId dictionary, std::u16string_view key, ObjectId object)
{
    const Index index = drawing_.indexOf(dictionary), entry = drawing_.indexOf(object);
    if (drawing_.dictionary(index) == nullptr || entry == kNone || drawing_.at(entry).erased)
        return ErrNo::badName;
    if (drawing_.at(entry).family() != Family::object || entry == index) return ErrNo::badType;
    const std::string form = fileForm(key);
    // One object under two keys would send a walk round in circles.
    if (drawing_.at(entry).owner != 0 || entry == drawing_.rootDictionary()) return ErrNo::badValue;
    if (drawing_.standsIn(index, entry)) return ErrNo::badType;
    if (form != "*" && !isSymbolName(form, true)) return ErrNo::badValue;
    return drawing_.addToDictionary(index, form, entry) ? ErrNo::none : ErrNo::badValue;
}

ErrNo EntityFunctions::dictRemove(ObjectId dictionary, std::u16string_view key, ObjectId& object)
{
    object = {};
    const Index index = drawing_.indexOf(dictionary);
    const std::string form = fileForm(key);
    const Dictionary* entries = drawing_.dictionary(index);
    const Dictionary::Entry* entry = entries == nullptr ? nullptr : entries->find(form);
    if (entry == nullptr) return ErrNo::badName;
    object = drawing_.idOf(drawing_.byHandle(entry->object));
    drawing_.removeFromDictionary(index, form);
    return ErrNo::none;
}

ErrNo EntityFunctions::dictRename(ObjectId dictionary, std::u16string_view from,
                                  std::u16string_view to)
{
    const Index index = drawing_.indexOf(dictionary);
    const std::string old = fileForm(from), fresh = fileForm(to);
    if (drawing_.dictionary(index) == nullptr || drawing_.dictionary(index)->find(old) == nullptr)
        return ErrNo::badName;
    if (!isSymbolName(fresh, true)) return ErrNo::badValue;
    return drawing_.edit(index).needExtras().dictionary->rename(old, fresh) ? ErrNo::none
                                                                            : ErrNo::badValue;
}

} // namespace orvald::drawing
