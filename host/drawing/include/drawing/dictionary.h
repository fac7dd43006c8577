// SPDX-License-Identifier: LicenseRef-ORVALD
// Entries of a dictionary: keys that compare without regard to case and keep their case.
// Entries are found by binary search and walked in key order; a dictionary that came from a file in
// another order keeps that order in files until it is changed.
#pragma once

#include "drawing/tags.h"

#include <algorithm>
#include <string>
#include <vector>

namespace orvald::drawing {

class Dictionary
{
public:
    struct Entry
    {
        std::string key; // file form
        Handle object = 0;
        bool hard = false;      // group 360, else 350
        std::uint32_t rank = 0; // position in the file
    };

    std::size_t size() const { return entries_.size(); }
    /// Null when there is no such key.
    const Entry* find(std::string_view key) const;
    /// The first entry in key order; null when there is none.
    const Entry* first() const { return size() == 0 ? nullptr : &entries().front(); }
    /// The first entry in key order whose key comes after `key`; null when there is none.
    const Entry* after(std::string_view key) const;
    /// Entry of that object; null when there is none.
    const Entry* find(Handle object) const;

    /// Enters an object; false when the key is taken.
    bool add(std::string_view key, Handle object, bool hard);
    /// Enters what a file holds next; false when the key is taken.
    bool load(std::string_view key, Handle object, bool hard);
    /// Points an existing key at another object; false when there is no such key.
    bool setObject(std::string_view key, Handle object);
    bool remove(std::string_view key);
    /// Takes out all entries for which `goes` is true, in one pass.
    template <class Goes>
    void removeIf(Goes goes)
    {
        settle();
        std::erase_if(entries_, goes);
    }
    /// A key of "*" makes an anonymous one. False when the old key is missing or the new one is
    /// taken.
    bool rename(std::string_view from, std::string_view to);
    /// "*A" and the lowest number above all anonymous keys so far.
    std::string anonymousKey() const;

    /// All entries in key order.
    const std::vector<Entry>& entries() const;
    /// All entries in the order of the file.
    std::vector<const Entry*> fileOrder() const;
    std::vector<Entry>& mutableEntries();

private:
    std::size_t position(std::string_view key) const;
    std::size_t startOfLastRun() const { return runs_.empty() ? 0 : runs_.back(); }
    void mergeLastRun() const;
    void settle() const;

    // Runs sorted by key, each at least twice as long as the next one: so there are few of them,
    // and an entry is moved few times.
    mutable std::vector<Entry> entries_;
    mutable std::vector<std::size_t> runs_; // where the runs behind the first one start
    bool inFileOrder_ = false;              // ranks count, not the sorted order
    std::uint64_t lastAnonymous_ = 0;
};

} // namespace orvald::drawing
