// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionary entries: sorted runs that are merged as they grow, so that many additions in a row, in
// whatever order, do not move all entries each time.
#include "drawing/dictionary.h"

#include "drawing/text.h"

#include <charconv>

namespace orvald::drawing {
namespace {

bool keyLess(const Dictionary::Entry& a, const Dictionary::Entry& b)
{
    return compareNames(a.key, b.key) < 0;
}

/// Number of an anonymous key ("*A12"), 0 for others.
std::uint64_t anonymousNumber(std::string_view key)
{
    if (key.size() < 3 || key[0] != '*' || (key[1] != 'A' && key[1] != 'a')) return 0;
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(key.data() + 2, key.data() + key.size(), number);
    constexpr std::uint64_t most = std::uint64_t{1} << 62; // leaves room for many more
    return error == std::errc() && end == key.data() + key.size() && number < most ? number : 0;
}

} // namespace

void Dictionary::mergeLastRun() const
{
    const auto middle = entries_.begin() + static_cast<std::ptrdiff_t>(runs_.back());
    runs_.pop_back();
    std::inplace_merge(entries_.begin() + static_cast<std::ptrdiff_t>(startOfLastRun()), middle,
                       entries_.end(), keyLess);
}

void Dictionary::settle() const
{
    while (!runs_.empty()) mergeLastRun();
}

std::size_t Dictionary::position(std::string_view key) const
{
    for (std::size_t run = 0; run <= runs_.size(); ++run) {
        const std::size_t start = run == 0 ? 0 : runs_[run - 1];
        const std::size_t stop = run == runs_.size() ? entries_.size() : runs_[run];
        const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(stop);
        const auto found = std::lower_bound(entries_.begin() + static_cast<std::ptrdiff_t>(start),
                                            end, key, [](const Entry& e, std::string_view wanted) {
                                                return compareNames(e.key, wanted) < 0;
                                            });
        if (found != end && sameName(found->key, key))
            return static_cast<std::size_t>(found - entries_.begin());
    }
    return entries_.size();
}

const Dictionary::Entry* Dictionary::find(std::string_view key) const
{
    const std::size_t at = position(key);
    return at == entries_.size() ? nullptr : &entries_[at];
}

const Dictionary::Entry* Dictionary::after(std::string_view key) const
{
    settle();
    const auto found = std::upper_bound(
        entries_.begin(), entries_.end(), key,
        [](std::string_view wanted, const Entry& e) { return compareNames(wanted, e.key) < 0; });
    return found == entries_.end() ? nullptr : &*found;
}

const Dictionary::Entry* Dictionary::find(Handle object) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [object](const Entry& e) { return e.object == object; });
    return found == entries_.end() ? nullptr : &*found;
}

bool Dictionary::load(std::string_view key, Handle object, bool hard)
{
    const bool follows = entries_.empty() || compareNames(entries_.back().key, key) < 0;
    if (!follows || !runs_.empty()) {
        if (position(key) != entries_.size()) return false;
        inFileOrder_ = true;
    }
    lastAnonymous_ = std::max(lastAnonymous_, anonymousNumber(key));
    if (!follows) runs_.push_back(entries_.size());
    entries_.push_back(
        {std::string(key), object, hard, static_cast<std::uint32_t>(entries_.size())});
    while (!runs_.empty()) {
        const std::size_t last = entries_.size() - runs_.back();
        const std::size_t before = runs_.back() - (runs_.size() == 1 ? 0 : runs_[runs_.size() - 2]);
        if (before >= 2 * last) break;
        mergeLastRun();
    }
    return true;
}

bool Dictionary::add(std::string_view key, Handle object, bool hard)
{
    const bool kept = inFileOrder_;
    if (!load(key, object, hard)) {
        inFileOrder_ = kept;
        return false;
    }
    inFileOrder_ = false; // a changed dictionary is written in key order
    return true;
}

bool Dictionary::setObject(std::string_view key, Handle object)
{
    const std::size_t at = position(key);
    if (at == entries_.size()) return false;
    entries_[at].object = object;
    return true;
}

bool Dictionary::remove(std::string_view key)
{
    settle();
    const std::size_t at = position(key);
    if (at == entries_.size()) return false;
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(at));
    return true;
}

bool Dictionary::rename(std::string_view from, std::string_view to)
{
    const std::string name = to == "*" ? anonymousKey() : std::string(to);
    const std::size_t at = position(from), taken = position(name);
    if (at == entries_.size() || (taken != entries_.size() && taken != at)) return false;
    const Entry entry = entries_[at];
    remove(from);
    return add(name, entry.object, entry.hard);
}

std::string Dictionary::anonymousKey() const { return "*A" + std::to_string(lastAnonymous_ + 1); }

const std::vector<Dictionary::Entry>& Dictionary::entries() const
{
    settle();
    return entries_;
}

std::vector<Dictionary::Entry>& Dictionary::mutableEntries()
{
    settle();
    return entries_;
}

std::vector<const Dictionary::Entry*> Dictionary::fileOrder() const
{
    settle();
    std::vector<const Entry*> order;
    order.reserve(entries_.size());
    for (const Entry& entry : entries_) order.push_back(&entry);
    if (inFileOrder_) {
        std::stable_sort(order.begin(), order.end(),
                         [](const Entry* a, const Entry* b) { return a->rank < b->rank; });
    }
    return order;
}

} // namespace orvald::drawing
