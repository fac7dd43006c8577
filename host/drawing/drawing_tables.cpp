// SPDX-License-Identifier: LicenseRef-ORVALD
// Symbol tables of a drawing: records by name, layers, registered applications, renaming.
#include "drawing/drawing.h"

#include "drawing/text.h"
#include "name_uses.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace orvald::drawing {
namespace {

struct TableFacts
{
    std::string_view name, marker;
    Kind kind;
};
constexpr TableFacts kTables[] = {{"VPORT", "AcDbViewportTableRecord", Kind::vport},
                                  {"LTYPE", "AcDbLinetypeTableRecord", Kind::ltype},
                                  {"LAYER", "AcDbLayerTableRecord", Kind::layer},
                                  {"STYLE", "AcDbTextStyleTableRecord", Kind::style},
                                  {"VIEW", "AcDbViewTableRecord", Kind::view},
                                  {"UCS", "AcDbUCSTableRecord", Kind::ucs},
                                  {"APPID", "AcDbRegAppTableRecord", Kind::appid},
                                  {"DIMSTYLE", "AcDbDimStyleTableRecord", Kind::dimstyle},
                                  {"BLOCK_RECORD", "AcDbBlockTableRecord", Kind::blockRecord}};
static_assert(std::size(kTables) == kTableCount);

/// A header variable that names a table record.
struct VariableUse
{
    TableId table;
    std::string_view variable;
};
constexpr VariableUse kVariableUses[] = {
    {TableId::layer, "$CLAYER"},         {TableId::ltype, "$CELTYPE"},
    {TableId::style, "$TEXTSTYLE"},      {TableId::style, "$DIMTXSTY"},
    {TableId::dimstyle, "$DIMSTYLE"},    {TableId::ucs, "$UCSNAME"},
    {TableId::ucs, "$PUCSNAME"},         {TableId::blockRecord, "$DIMBLK"},
    {TableId::blockRecord, "$DIMBLK1"},  {TableId::blockRecord, "$DIMBLK2"},
    {TableId::blockRecord, "$DIMLDRBLK"}};

} // namespace

std::string_view tableName(TableId table) { return kTables[std::size_t(table)].name; }
Kind recordKind(TableId table) { return kTables[std::size_t(table)].kind; }
std::string_view recordMarker(TableId table) { return kTables[std::size_t(table)].marker; }

bool tableOf(std::string_view name, TableId& table)
{
    if (sameName(name, "BLOCK")) name = "BLOCK_RECORD";
    const auto found = std::find_if(std::begin(kTables), std::end(kTables),
                                    [&](const TableFacts& t) { return sameName(t.name, name); });
    if (found == std::end(kTables)) return false;
    table = static_cast<TableId>(found - std::begin(kTables));
    return true;
}

SymbolTable& Drawing::editTable(TableId table)
{
    if (journal_ != nullptr) journal_->saveTable(std::size_t(table));
    return tables_[std::size_t(table)];
}

void Drawing::setTableHead(TableId table, Index head)
{
    editTable(table).head = head;
    ++changes_;
}

Index Drawing::findRecord(TableId table, std::string_view name) const
{
    const auto& byName = tables_[std::size_t(table)].byName;
    const auto found = byName.find(nameKey(name));
    return found == byName.end() || at(found->second).erased ? kNone : found->second;
}

bool Drawing::appendRecord(TableId table, Index record)
{
    const std::string_view name = at(record).name();
    const bool mayRepeat = table == TableId::vport || (table == TableId::style && name.empty());
    SymbolTable& mine = editTable(table);
    const auto [place, fresh] = mine.byName.try_emplace(nameKey(name), record);
    if (!fresh && at(place->second).erased) place->second = record;
    else if (!fresh && !mayRepeat) return false;
    mine.records.push_back(record);
    if (mine.head != kNone) edit(record).owner = at(mine.head).handle;
    ++changes_;
    return true;
}

bool Drawing::renameRecord(TableId table, Index record, std::string_view name)
{
    const std::string from(at(record).name()), to(name);
    const Index taken = findRecord(table, to);
    if (taken != kNone && taken != record) return false;
    if (from == to) return true;
    auto& byName = editTable(table).byName;
    byName.erase(nameKey(from));
    byName[nameKey(to)] = record;
    setName(edit(record), to);
    replaceName(table, from, to);
    return true;
}

void Drawing::replaceName(TableId table, std::string_view from, std::string_view to)
{
    const auto means = [&](TableId where, std::string_view name) {
        return where == table && sameName(name, from);
    };
    for (Index i = 0; i < count_; ++i) {
        bool mentioned = false;
        forEachName(at(i), [&](TableId where, std::string_view name) {
            mentioned = mentioned || means(where, name);
        });
        if (!mentioned) continue;
        replaceNames(edit(i), [&](TableId where, std::string_view name) {
            return means(where, name) ? std::string(to) : std::string();
        });
    }
    for (const VariableUse& use : kVariableUses) {
        if (use.table == table && header.has(use.variable) &&
            sameName(header.text(use.variable), from))
            header.setText(use.variable, 1, to);
    }
}

std::string Drawing::anonymousBlockName(std::string_view prefix) const
{
    const std::string start = nameKey(prefix);
    std::uint64_t last = 0;
    for (const Index index : tableRecords(TableId::blockRecord)) {
        const std::string key = nameKey(at(index).name());
        std::uint64_t number = 0;
        if (!key.starts_with(start)) continue;
        const char* digits = key.data() + start.size();
        const auto [end, error] = std::from_chars(digits, key.data() + key.size(), number);
        constexpr std::uint64_t most = std::uint64_t{1} << 62;
        if (error == std::errc() && end == key.data() + key.size() && number < most)
            last = std::max(last, number);
    }
    return std::string(prefix) + std::to_string(last + 1);
}

bool Drawing::isLayerLocked(std::string_view layer) const
{
    const Index index = findRecord(TableId::layer, layer);
    return index != kNone && (at(index).tags.integer(70) & 4) != 0;
}

bool Drawing::isLayerHidden(std::string_view layer) const
{
    const Index index = findRecord(TableId::layer, layer);
    return index != kNone &&
           ((at(index).tags.integer(70) & 1) != 0 || at(index).tags.integer(62, 7) < 0);
}

Index Drawing::needLayer(std::string_view name)
{
    const Index known = findRecord(TableId::layer, name);
    if (known != kNone) return known;
    Record layer(Kind::layer, Family::tableRecord);
    layer.tags.addText(100, "AcDbSymbolTableRecord");
    layer.tags.addText(100, recordMarker(TableId::layer));
    layer.tags.addText(2, name);
    layer.tags.addInteger(70, 0);
    layer.tags.addInteger(62, 7);
    layer.tags.addText(6, "Continuous");
    layer.tags.addInteger(370, -3);
    completeLayer(layer.tags);
    const Index index = add(std::move(layer));
    appendRecord(TableId::layer, index);
    return index;
}

void Drawing::completeLayer(TagList& layer) const
{
    const Index zero = findRecord(TableId::layer, "0");
    for (const int code : {390, 347}) { // AutoCAD refuses layers without them
        const Handle handle = zero == kNone ? 0 : at(zero).tags.handle(code);
        if (handle != 0 && !layer.has(code)) layer.addHandle(code, handle);
    }
}

bool Drawing::registerApp(std::string_view name)
{
    if (findRecord(TableId::appid, name) != kNone) return false;
    Record app(Kind::appid, Family::tableRecord);
    app.tags.addText(100, "AcDbSymbolTableRecord");
    app.tags.addText(100, recordMarker(TableId::appid));
    app.tags.addText(2, name);
    app.tags.addInteger(70, 0);
    appendRecord(TableId::appid, add(std::move(app)));
    return true;
}

} // namespace orvald::drawing
