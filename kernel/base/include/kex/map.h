// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexMapTempl: values by key, in key order. Text keys are equal without regard to case and come in
// the order of their capitals; the spelling of the first setting stays.
#pragma once

#include "kex/string.h"

#include <map>

namespace KEX {
template <class K>
struct MapLess
{
    bool operator()(const K& a, const K& b) const { return a < b; }
};
template <>
struct MapLess<CKexString>
{
    bool operator()(const CKexString& a, const CKexString& b) const
    {
        return compareNoCase(a, b) < 0;
    }
};
} // namespace KEX

template <class K, class V>
class CKexMapTempl
{
public:
    int length() const { return static_cast<int>(items_.size()); }
    bool isEmpty() const { return items_.empty(); }
    void clear() { items_.clear(); }

    /// Null when the key is absent.
    V* find(const K& key)
    {
        const auto place = items_.find(key);
        return place == items_.end() ? nullptr : &place->second;
    }
    const V* find(const K& key) const
    {
        const auto place = items_.find(key);
        return place == items_.end() ? nullptr : &place->second;
    }
    /// Makes an empty value when the key is absent.
    V& operator[](const K& key) { return items_[key]; }
    void set(const K& key, V value) { items_[key] = std::move(value); }
    /// False when the key is absent.
    bool remove(const K& key) { return items_.erase(key) != 0; }

    // Entries are pairs: `first` the key, `second` the value.
    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::map<K, V, KEX::MapLess<K>> items_;
};
