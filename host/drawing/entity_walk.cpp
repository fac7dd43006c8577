// SPDX-License-Identifier: LicenseRef-ORVALD
// Erasing, walking and finding entities.
#include "drawing/entity_functions.h"
#include "drawing/text.h"

#include <charconv>

namespace orvald::drawing {
namespace {

/// The first one at or behind `index` under its owner that is not erased.
Index alive(const Drawing& drawing, Index index)
{
    while (index != kNone && drawing.at(index).erased) index = drawing.next(index);
    return index;
}

} // namespace

ErrNo EntityFunctions::entDel(ObjectId id)
{
    const Index index = drawing_.indexOf(id);
    if (index == kNone) return ErrNo::badName;
    const Record& record = drawing_.at(index);
    if (!drawing_.mayErase(index)) return ErrNo::badType;
    if (record.isEntity() && drawing_.isLayerLocked(record.layer())) return ErrNo::lockedLayer;
    return drawing_.setErased(index, !record.erased) ? ErrNo::none : ErrNo::badName;
}

ErrNo EntityFunctions::entNext(ObjectId id, ObjectId& next) const
{
    next = {};
    Index found = kNone;
    Index block = kNone; // whose entities are being walked
    if (id.isNull()) {
        block = drawing_.modelSpace();
        found = block == kNone ? kNone : drawing_.firstLiving(block);
    } else {
        const Index index = drawing_.indexOf(id);
        if (index == kNone || !drawing_.at(index).isEntity()) return ErrNo::badName;
        const Record& record = drawing_.at(index);
        block = drawing_.blockOf(index);
        if (record.kind() == Kind::block) {
            found = block == kNone ? kNone : drawing_.firstLiving(block);
        } else {
            if (hasParts(record.kind()) && !record.erased)
                found = alive(drawing_, drawing_.firstChild(index));
            if (found == kNone) found = alive(drawing_, drawing_.next(index));
            if (found == kNone && isPart(record.kind())) {
                const Index owner = drawing_.byHandle(record.owner);
                if (owner != kNone) found = alive(drawing_, drawing_.next(owner));
            }
        }
    }
    // Behind the model comes the active sheet.
    if (found == kNone && block != kNone && block == drawing_.modelSpace()) {
        const Index sheet = drawing_.paperSpace();
        if (sheet != kNone) found = drawing_.firstLiving(sheet);
    }
    next = drawing_.idOf(found);
    return ErrNo::none;
}

ObjectId EntityFunctions::entLast() const
{
    const Index spaces[] = {drawing_.currentSpace(), drawing_.modelSpace(), drawing_.paperSpace()};
    for (const Index space : spaces) {
        const Index last = space == kNone ? kNone : drawing_.lastLiving(space);
        if (last != kNone) return drawing_.idOf(last);
    }
    return {};
}

ErrNo EntityFunctions::handEnt(std::u16string_view text, ObjectId& id) const
{
    id = {};
    const std::string digits = utf8(text);
    Handle handle = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, handle, 16);
    if (error != std::errc() || stop != end) return ErrNo::badHandle;
    id = drawing_.idOf(drawing_.byHandle(handle));
    return id.isNull() ? ErrNo::badHandle : ErrNo::none;
}

bool EntityFunctions::regApp(std::u16string_view name)
{
    const std::string form = fileForm(name);
    return isSymbolName(form) && drawing_.registerApp(form);
}

} // namespace orvald::drawing
