// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/object_data.h"

#include "chain.h"
#include "drawing/text.h"
#include "given.h"
#include "resbuf/groups.h"

#include <cmath>

namespace orvald::drawing {
namespace {

constexpr int kCloningGroup = 280;
constexpr int kKeepExisting = 1;

/// Position of the first group that programs see in an xrecord.
TagList::Iterator ownGroups(const TagList& tags)
{
    auto it = tags.findMarker("AcDbXrecord");
    if (it == tags.end()) return it;
    ++it;
    return it != tags.end() && (*it).code() == kCloningGroup ? std::next(it) : it;
}

} // namespace

Record newXrecord()
{
    Record record(Kind::xrecord, Family::object);
    record.tags.addText(100, "AcDbXrecord");
    record.tags.addInteger(kCloningGroup, kKeepExisting);
    return record;
}

bool isXrecordCode(int code)
{
    if (code < 1 || code > 369 || code == 5 || code == 100 || code == 105) return false;
    const GroupKind kind = groupKind(code);
    return kind != GroupKind::none && (kind != GroupKind::point || beginsPoint(code));
}

Acad::ErrorStatus xrecordGroups(const Drawing& drawing, const resbuf* chain, TagList& groups)
{
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        if (!isXrecordCode(node->restype)) return Acad::eInvalidDxfCode;
        if (addNode(drawing, *node, false, groups)) continue;
        return groupKind(node->restype) == GroupKind::object &&
                       Drawing::ofId(fromName(node->resval.rlname)) != nullptr
                   ? Acad::eWrongDatabase
                   : Acad::eInvalidInput;
    }
    return Acad::eOk;
}

void setXrecordGroups(Record& record, const TagList& groups)
{
    TagList& tags = record.tags;
    const int cloning = xrecordCloning(record);
    const auto marker = tags.findMarker("AcDbXrecord");
    tags.erase(marker, tags.end());
    tags.addText(100, "AcDbXrecord");
    tags.addInteger(kCloningGroup, cloning);
    tags.append(groups);
    tags.shrink();
}

resbuf* xrecordChain(const Drawing& drawing, const Record& record)
{
    ChainBuilder out;
    for (auto it = ownGroups(record.tags); it != record.tags.end(); ++it) out.tag(drawing, *it);
    return out.take();
}

int xrecordCloning(const Record& record)
{
    auto it = record.tags.findMarker("AcDbXrecord");
    if (it == record.tags.end() || ++it == record.tags.end()) return kKeepExisting;
    return (*it).code() == kCloningGroup ? static_cast<int>((*it).integer()) : kKeepExisting;
}

void setXrecordCloning(Record& record, int cloning)
{
    const TagList& tags = record.tags;
    TagList groups;
    for (auto it = ownGroups(tags); it != tags.end(); ++it) groups.add(*it);
    setXrecordGroups(record, groups);
    auto flag = std::next(record.tags.findMarker("AcDbXrecord"));
    TagList fresh;
    fresh.addInteger(kCloningGroup, cloning);
    record.tags.replace(flag, fresh);
}

Record newDictionary(bool hardOwner)
{
    Record record(Kind::dictionary, Family::object);
    record.tags.addText(100, "AcDbDictionary");
    if (hardOwner) record.tags.addInteger(kHardOwnerGroup, 1);
    record.tags.addInteger(kDictionaryCloningGroup, kKeepExisting);
    record.needExtras().dictionary.emplace();
    return record;
}

void setHardOwner(Record& record, bool hard)
{
    const auto old = record.tags.find(kHardOwnerGroup);
    if (old != record.tags.end()) record.tags.erase(old);
    if (hard) {
        TagList flag;
        flag.addInteger(kHardOwnerGroup, 1);
        const auto marker = record.tags.findMarker("AcDbDictionary");
        record.tags.insert(marker == record.tags.end() ? marker : std::next(marker), flag);
    }
    for (Dictionary::Entry& entry : record.needExtras().dictionary->mutableEntries())
        entry.hard = hard;
}

void setDictionaryCloning(Record& record, int cloning)
{
    TagList& tags = record.tags;
    TagList flag;
    flag.addInteger(kDictionaryCloningGroup, cloning);
    if (const auto old = tags.find(kDictionaryCloningGroup); old != tags.end()) {
        tags.replace(old, flag);
        return;
    }
    auto place = tags.findMarker("AcDbDictionary"); // behind it, and behind the flag for owners
    if (place != tags.end()) ++place;
    if (place != tags.end() && (*place).code() == kHardOwnerGroup) ++place;
    tags.insert(place, flag);
}

resbuf* xdataChain(const Drawing& drawing, const TagList& xdata, std::u16string_view application)
{
    const std::string wanted = fileForm(application);
    ChainBuilder out;
    bool told = application.empty();
    for (const Tag tag : xdata) {
        if (tag.code() == 1001 && !application.empty()) told = sameName(tag.text(), wanted);
        if (told) out.tag(drawing, tag);
    }
    return out.take();
}

ErrNo mergeXdataChain(const Drawing& drawing, const resbuf* chain, TagList& xdata)
{
    if (chain == nullptr) return ErrNo::badXdata;
    TagList given;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        if (node->restype < 1000 || !addNode(drawing, *node, false, given)) return ErrNo::badXdata;
    }
    if (const ErrNo error = checkXdata(drawing, given); error != ErrNo::none) return error;
    mergeXdata(xdata, given);
    return checkXdata(drawing, xdata) == ErrNo::xdataTooBig ? ErrNo::xdataTooBig : ErrNo::none;
}

} // namespace orvald::drawing
