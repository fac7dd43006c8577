// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/purge.h"

#include "drawing/text.h"
#include "name_uses.h"

#include <algorithm>
#include <unordered_set>

namespace orvald::drawing {
namespace {

/// Names and handles that are in use.
struct Uses
{
    std::unordered_set<std::string> names; // keys of names of the one table
    std::unordered_set<Handle> handles;
};

/// The header variables that name a record of the table.
std::vector<std::string_view> variablesOf(TableId table)
{
    switch (table) {
    case TableId::layer: return {"$CLAYER"};
    case TableId::ltype: return {"$CELTYPE"};
    case TableId::style: return {"$TEXTSTYLE", "$DIMTXSTY"};
    case TableId::dimstyle: return {"$DIMSTYLE"};
    case TableId::ucs: return {"$UCSNAME", "$PUCSNAME"};
    case TableId::blockRecord: return {"$DIMBLK", "$DIMBLK1", "$DIMBLK2", "$DIMLDRBLK"};
    default: return {};
    }
}

Uses usesOf(const Drawing& drawing, TableId table)
{
    Uses uses;
    for (const std::string_view variable : variablesOf(table))
        uses.names.insert(nameKey(drawing.header.text(variable)));
    for (Index index = 0; index < drawing.recordCount(); ++index) {
        const Record& record = drawing.at(index);
        if (drawing.isGone(index)) continue;
        // A BLOCK names its own block, a block record the inserts that show it.
        if (record.kind() != Kind::block || table != TableId::blockRecord) {
            forEachName(record, [&](TableId of, std::string_view name) {
                if (of == table) uses.names.insert(nameKey(name));
            });
        }
        const auto count = [&](const TagList& tags) {
            for (const Tag tag : tags)
                if (isReference(tag.code()) && tag.handle() != 0) uses.handles.insert(tag.handle());
        };
        if (record.kind() != Kind::blockRecord) count(record.tags);
        if (record.extras() != nullptr) count(record.extras()->xdata);
    }
    return uses;
}

/// What every drawing has.
bool isFixed(const Drawing& drawing, TableId table, Index index)
{
    const Record& record = drawing.at(index);
    const std::string_view name = record.name();
    const auto is = [&](std::string_view fixed) { return sameName(name, fixed); };
    switch (table) {
    case TableId::layer: return is("0") || is("Defpoints");
    case TableId::ltype: return is("ByLayer") || is("ByBlock") || is("Continuous");
    case TableId::style:
    case TableId::dimstyle: return is("Standard");
    case TableId::appid: return is("ACAD");
    case TableId::vport: return true;
    case TableId::blockRecord: return drawing.isLayoutBlock(index) || name.starts_with("*");
    default: return false;
    }
}

} // namespace

std::vector<Index> unusedRecords(const Drawing& drawing, TableId table)
{
    const Uses uses = usesOf(drawing, table);
    std::vector<Index> unused;
    for (const Index index : drawing.tableRecords(table)) {
        const Record& record = drawing.at(index);
        if (record.erased || isFixed(drawing, table, index)) continue;
        if (uses.names.contains(nameKey(record.name()))) continue;
        if (uses.handles.contains(record.handle)) continue;
        unused.push_back(index);
    }
    return unused;
}

} // namespace orvald::drawing
