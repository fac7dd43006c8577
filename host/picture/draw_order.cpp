// SPDX-License-Identifier: LicenseRef-ORVALD
// A table in the extension dictionary of the block record lends some entities another handle to be
// sorted by; all others are sorted by their own.
#include "draw_order.h"

#include <algorithm>
#include <unordered_map>

namespace orvald::picture {

using drawing::Handle;
using drawing::Index;

std::vector<Index> drawOrder(const drawing::Drawing& drawing, Index blockRecord)
{
    const Handle dictionary = drawing.at(blockRecord).extensionDictionary();
    if (dictionary == 0) return {};
    const Index table = drawing.dictionaryEntry(drawing.byHandle(dictionary), "ACAD_SORTENTS");
    if (table == drawing::kNone) return {};
    constexpr int kEntity = 331, kSortedBy = 5;
    std::unordered_map<Handle, Handle> lent;
    Handle entity = 0;
    for (const drawing::Tag tag : drawing.at(table).tags) {
        if (tag.code() == kEntity) entity = tag.handle();
        else if (tag.code() == kSortedBy && entity != 0) lent.emplace(entity, tag.handle());
    }
    if (lent.empty()) return {};
    std::vector<std::pair<Handle, Index>> keyed;
    for (Index child = drawing.firstChild(blockRecord); child != drawing::kNone;
         child = drawing.next(child)) {
        const Handle own = drawing.at(child).handle;
        const auto found = lent.find(own);
        keyed.emplace_back(found != lent.end() ? found->second : own, child);
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Index> order;
    order.reserve(keyed.size());
    for (const auto& [key, child] : keyed) order.push_back(child);
    return order;
}

} // namespace orvald::picture
