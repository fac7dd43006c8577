// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups of other codes in a list's record, which others may have put there, are kept.
#include "dbbridge/hard_pointers.h"

#include "kex/resbuf_chain.h"
#include "kexobj/dictionaries.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"

#include <unordered_set>

namespace KEX {
namespace {

constexpr short kHardPointer = 340;

/// The target of a list's entry; null for another group.
AcDbObjectId targetOf(const resbuf& entry)
{
    AcDbObjectId id;
    if (entry.restype == kHardPointer) acdbGetObjectId(id, entry.resval.rlname);
    return id;
}

const resbuf* findTarget(const resbuf* list, AcDbObjectId target)
{
    while (list != nullptr && targetOf(*list) != target) list = list->rbnext;
    return list;
}

void appendTarget(RbBuilder& list, AcDbObjectId target)
{
    CAdsName name;
    acdbGetAdsName(name.asName(), target);
    list.name(name, kHardPointer);
}

bool canBeOpened(AcDbObjectId target)
{
    // For notify: a target that somebody writes to exists as well.
    return static_cast<bool>(OpenObject<AcDbObject>(target, AcDb::kForNotify));
}

bool isList(const resbuf* groups)
{
    bool any = false;
    for (; groups != nullptr; groups = groups->rbnext) {
        if (groups->restype != kHardPointer) return false;
        any = true;
    }
    return any;
}

bool write(AcDbObject* owner, const ACHAR* name, RbBuilder& list)
{
    return owner != nullptr && isHardPointerName(name) && xrecRbSet(*owner, name, list.take());
}

} // namespace

bool isHardPointerName(const ACHAR* name)
{
    const TextView text(name);
    return !text.empty() && !equalNoCase(text, kDataXrecord);
}

bool addHardPointer(AcDbObject* owner, const ACHAR* name, AcDbObjectId target)
{
    if (owner == nullptr || !isHardPointerName(name) || !canBeOpened(target)) return false;
    CSmartResbuf old = xrecRbGet(*owner, name);
    if (findTarget(old, target) != nullptr) return true;
    RbBuilder list;
    list.adopt(std::move(old));
    appendTarget(list, target);
    return write(owner, name, list);
}

bool setHardPointer(AcDbObject* owner, const ACHAR* name, const AcArray<AcDbObjectId>& targets)
{
    RbBuilder list;
    std::unordered_set<std::uint64_t> entered;
    for (const AcDbObjectId target : targets) {
        if (!canBeOpened(target) || !entered.insert(target.asOldId()).second) continue;
        appendTarget(list, target);
    }
    return write(owner, name, list);
}

bool setHardPointer(AcDbObject* owner, const ACHAR* name, AcDbObjectId target)
{
    if (target.isNull()) return false;
    RbBuilder list;
    appendTarget(list, target);
    return write(owner, name, list);
}

bool removeHardPointer(AcDbObject* owner, const ACHAR* name, AcDbObjectId target)
{
    if (target.isNull() || owner == nullptr || !isHardPointerName(name)) return false;
    const CSmartResbuf old = xrecRbGet(*owner, name);
    const resbuf* const gone = findTarget(old, target);
    if (gone == nullptr) return true;
    RbBuilder list;
    for (const resbuf* entry = old; entry != nullptr; entry = entry->rbnext) {
        if (entry != gone) list.copyValue(entry);
    }
    return write(owner, name, list);
}

bool getHardPointer(const AcDbObject* owner, const ACHAR* name, AcArray<AcDbObjectId>& targets)
{
    targets.setLogicalLength(0);
    if (owner == nullptr || !isHardPointerName(name)) return false;
    const CSmartResbuf list = xrecRbGet(*owner, name);
    for (const resbuf* entry = list; entry != nullptr; entry = entry->rbnext) {
        const AcDbObjectId target = targetOf(*entry);
        if (!target.isErased()) targets.append(target);
    }
    return !targets.isEmpty();
}

bool removeHardPointerLists(AcDbObject& owner)
{
    bool any = false;
    for (const DictEntry& entry : dictDir(owner.extensionDictionary())) {
        if (!isList(xrecRbGet(owner, entry.name.c_str()))) continue;
        const OpenObject<AcDbXrecord> record(entry.id, AcDb::kForWrite);
        any |= record && record->erase() == Acad::eOk;
    }
    if (any) owner.releaseExtensionDictionary(); // refused while it has entries
    return any;
}

} // namespace KEX
