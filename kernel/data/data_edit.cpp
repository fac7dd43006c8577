// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexdata/data_edit.h"

#include "kexdata/data_dir.h"

namespace KEX {
namespace {

/// Takes away what stands at a key that is not empty, if anything does.
void prune(CKexDataItem& item, const CKexDataKey& key)
{
    std::vector<CKexDataDir*> way; // directories from the item down to the one of the last part
    CKexDataItem* at = &item;
    for (const DataKeyPart& part : key) {
        CKexDataDir* dir = at->getDir();
        at = dir == nullptr ? nullptr : dir->child(part);
        if (at == nullptr) return;
        way.push_back(dir);
    }
    way.back()->removeChild(key.last());
    while (way.size() > 1 && way.back()->isEmpty()) {
        way.pop_back();
        way.back()->removeChild(key[static_cast<int>(way.size()) - 1]);
    }
    if (way.front()->isEmpty()) item.clear();
}

/// True when the key leads through something that is neither directory nor nil.
bool isBlocked(const CKexDataItem& item, const CKexDataKey& key)
{
    const CKexDataItem* at = &item;
    for (const DataKeyPart& part : key) {
        if (at == nullptr || at->isNil()) return false;
        if (!at->isDir()) return true;
        at = at->getDir()->child(part);
    }
    return false;
}

} // namespace

bool dataSet(CKexDataItem& item, const CKexDataKey& key, CKexDataItem value)
{
    if (!value.isNil() || key.isEmpty()) return item.put(key, std::move(value));
    if (isBlocked(item, key)) return false;
    prune(item, key);
    return true;
}

void dataMerge(CKexDataItem& item, const CKexDataItem& over)
{
    std::vector<std::pair<CKexDataItem*, const CKexDataItem*>> open;
    if (!over.isNil()) open.emplace_back(&item, &over);
    while (!open.empty()) {
        const auto [to, from] = open.back();
        open.pop_back();
        if (!to->isDir()) {
            *to = *from;
        } else if (from->isDir()) {
            for (const auto child : *from->getDir()) {
                open.emplace_back(&to->getDir()->makeChild(child.key), &child.item);
            }
        } else if (!from->isNil()) {
            *to = *from;
        }
    }
}

} // namespace KEX
