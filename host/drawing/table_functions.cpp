// SPDX-License-Identifier: LicenseRef-ORVALD
// Symbol tables as programs see them: short lists of the groups that R12 had.
#include "chain.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"

#include <algorithm>

namespace orvald::drawing {
namespace {

/// Groups that table lists show: no names, handles, markers or braces, and of layers and the like
/// only what old files had. Dimension styles have their variables everywhere.
bool isShown(Kind kind, int code)
{
    if (code == 5 || code == 100 || code == 102 || code == 105) return false;
    if (kind == Kind::dimstyle) return code < 300;
    return code < 80 || (code >= 210 && code <= 230);
}

void tellRecord(const Drawing& drawing, Index index, ChainBuilder& out)
{
    const Record& record = drawing.at(index);
    const Extras* extras = record.extras();
    if (record.kind() == Kind::blockRecord && extras != nullptr && extras->blockBegin != kNone) {
        const Record& begin = drawing.at(extras->blockBegin);
        out.text(0, u"BLOCK");
        out.text(2, text16(record.name()));
        TagList head;
        head.addInteger(70, begin.tags.integer(70));
        head.addPoint(10, begin.tags.point(10));
        if (!begin.tags.text(1).empty()) head.addText(1, begin.tags.text(1));
        out.list(drawing, head);
        if (extras->firstChild != kNone) out.name(-2, drawing.idOf(extras->firstChild));
        return;
    }
    out.text(0, utf16(record.typeName()));
    for (const Tag tag : record.tags)
        if (isShown(record.kind(), tag.code())) out.tag(drawing, tag);
}

} // namespace

ErrNo EntityFunctions::tblSearch(std::u16string_view tableName, std::u16string_view name,
                                 bool setNext, resbuf*& chain)
{
    chain = nullptr;
    TableId table{};
    if (!tableOf(fileForm(tableName), table)) return ErrNo::badTable;
    const Index index = drawing_.findRecord(table, fileForm(name));
    if (index == kNone) return ErrNo::badName;
    if (setNext) {
        const std::vector<Index>& records = drawing_.tableRecords(table);
        const auto place = std::find(records.begin(), records.end(), index);
        tableNext_[std::size_t(table)] = static_cast<std::size_t>(place - records.begin()) + 1;
    }
    ChainBuilder out;
    tellRecord(drawing_, index, out);
    chain = out.take();
    return ErrNo::none;
}

ErrNo EntityFunctions::tblNext(std::u16string_view tableName, bool rewind, resbuf*& chain)
{
    chain = nullptr;
    TableId table{};
    if (!tableOf(fileForm(tableName), table)) return ErrNo::badTable;
    std::size_t& next = tableNext_[std::size_t(table)];
    if (rewind) next = 0;
    const std::vector<Index>& records = drawing_.tableRecords(table);
    while (next < records.size()) {
        const Index index = records[next++];
        const bool isSpace = table == TableId::blockRecord && drawing_.isLayoutBlock(index);
        if (drawing_.at(index).erased || isSpace) continue;
        ChainBuilder out;
        tellRecord(drawing_, index, out);
        chain = out.take();
        return ErrNo::none;
    }
    return ErrNo::none;
}

ErrNo EntityFunctions::tblObjName(std::u16string_view tableName, std::u16string_view name,
                                  ObjectId& id) const
{
    id = {};
    TableId table{};
    if (!tableOf(fileForm(tableName), table)) return ErrNo::badTable;
    Index index = drawing_.findRecord(table, fileForm(name));
    if (index != kNone && sameName(fileForm(tableName), "BLOCK")) {
        const Extras* extras = drawing_.at(index).extras();
        if (extras != nullptr && extras->blockBegin != kNone) index = extras->blockBegin;
    }
    id = drawing_.idOf(index);
    return id.isNull() ? ErrNo::badName : ErrNo::none;
}

} // namespace orvald::drawing
