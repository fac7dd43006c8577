// SPDX-License-Identifier: LicenseRef-ORVALD
#include "name_uses.h"

namespace orvald::drawing {
namespace {

/// A group in which records of a kind name a table record.
struct NameUse
{
    TableId table;
    Kind kind; // Kind::other: every entity
    int code;
};
constexpr NameUse kNameUses[] = {
    {TableId::layer, Kind::other, 8},        {TableId::ltype, Kind::other, 6},
    {TableId::ltype, Kind::layer, 6},        {TableId::ltype, Kind::mlineStyle, 6},
    {TableId::style, Kind::text, 7},         {TableId::style, Kind::mtext, 7},
    {TableId::style, Kind::attrib, 7},       {TableId::style, Kind::attdef, 7},
    {TableId::blockRecord, Kind::insert, 2}, {TableId::blockRecord, Kind::dimension, 2},
    {TableId::blockRecord, Kind::block, 2},  {TableId::blockRecord, Kind::block, 3},
    {TableId::dimstyle, Kind::dimension, 3}, {TableId::dimstyle, Kind::leader, 3},
    {TableId::dimstyle, Kind::tolerance, 3}};

/// A group of extended data that names a table record.
struct XdataUse
{
    TableId table;
    int code;
};
constexpr XdataUse kXdataUses[] = {{TableId::appid, 1001}, {TableId::layer, 1003}};

bool fits(const NameUse& use, const Record& record)
{
    return use.kind == Kind::other ? record.isEntity() : record.kind() == use.kind;
}

template <class Visit>
void visitTexts(const TagList& tags, int code, Visit visit)
{
    for (auto it = tags.find(code); it != tags.end(); it = tags.find(code, ++it))
        if ((*it).isText()) it = visit(it);
}

} // namespace

void forEachName(const Record& record, const std::function<void(TableId, std::string_view)>& visit)
{
    const auto tell = [&](const TagList& tags, TableId table, int code) {
        visitTexts(tags, code, [&](TagList::Iterator it) {
            visit(table, (*it).text());
            return it;
        });
    };
    for (const NameUse& use : kNameUses)
        if (fits(use, record)) tell(record.tags, use.table, use.code);
    if (record.extras() == nullptr) return;
    for (const XdataUse& use : kXdataUses) tell(record.extras()->xdata, use.table, use.code);
}

void replaceNames(Record& record,
                  const std::function<std::string(TableId, std::string_view)>& other)
{
    const auto put = [&](TagList& tags, TableId table, int code) {
        visitTexts(tags, code, [&](TagList::Iterator it) {
            const std::string name = other(table, (*it).text());
            if (name.empty()) return it;
            TagList fresh;
            fresh.addText(code, name);
            return tags.replace(it, fresh);
        });
    };
    for (const NameUse& use : kNameUses)
        if (fits(use, record)) put(record.tags, use.table, use.code);
    if (record.extras() == nullptr || record.extras()->xdata.empty()) return;
    for (const XdataUse& use : kXdataUses) put(record.needExtras().xdata, use.table, use.code);
}

void setName(Record& record, std::string_view name)
{
    TagList fresh;
    fresh.addText(2, name);
    const auto place = record.tags.find(2);
    if (place == record.tags.end()) record.tags.append(fresh);
    else record.tags.replace(place, fresh);
}

} // namespace orvald::drawing
