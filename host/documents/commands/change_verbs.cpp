// SPDX-License-Identifier: LicenseRef-ORVALD
// CHANGE, CHPROP, PURGE: properties of objects, and records that nothing uses.
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/purge.h"
#include "drawing/text.h"
#include "drawing/transform.h"
#include "text/wildcard.h"
#include "typed_values.h"

#include <cmath>
#include <functional>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Kind;
using drawing::Point;
using drawing::TableId;

/// Gives every object the same new value.
template <class Give>
void changeAll(Command& command, const std::vector<Index>& objects, Give give)
{
    for (const Index object : objects) {
        Groups change = changeOf(command, object);
        give(change);
        change.apply(command);
    }
}

/// Name of a table record in its own spelling.
std::u16string recordName(Command& command, TableId table, std::u16string_view typed)
{
    const drawing::Drawing& drawing = command.drawing();
    const Index record = drawing.findRecord(table, drawing::fileForm(trimmed(typed)));
    if (record == drawing::kNone) command.refuse(std::u16string(typed) + u" does not exist");
    return drawing::text16(drawing.at(record).name());
}

/// Moves objects along the user's Z axis to an elevation.
void changeElevation(Command& command, const std::vector<Index>& objects, double elevation)
{
    const UserPlane plane(command.drawing());
    for (const Index object : objects) {
        const drawing::Record& record = command.drawing().at(object);
        const bool flat = record.kind() == Kind::lwpolyline;
        const Point at = flat ? Point{0.0, 0.0, record.tags.real(38)} : record.tags.point(10);
        const Point normal = record.tags.point(210, {0.0, 0.0, 1.0});
        const bool spatial = record.kind() == Kind::line || record.kind() == Kind::point;
        const Point user = plane.user(spatial ? at : drawing::entityToWorld(normal)(at));
        drawing::Transform up;
        up.origin = {0.0, 0.0, elevation - user.z};
        transformEntity(command.drawing(), object, plane.worldMap(up));
    }
}

// ... Color c|Elev z|LAyer l|LType t|ltScale s|LWeight w|Thickness t, in any number, up to Enter
Task<> properties(Command& command, const std::vector<Index>& objects)
{
    for (;;) {
        const Answer<NoValue> option = co_await command.option(
            u"Enter property to change [Color/Elev/LAyer/LType/ltScale/LWeight/Thickness]: ",
            u"Color Elev LAyer LType ltScale LWeight Thickness TRansparency Material Annotative");
        if (option.isEnter()) co_return;
        if (option.is(u"Color")) {
            const std::u16string typed = co_await command.text(u"New color: ");
            const std::optional<int> number = readColour(typed);
            if (!number) command.refuse(typed + u" is not a colour");
            changeAll(command, objects, [&](Groups& change) { change.integer(62, *number); });
        } else if (option.is(u"LAyer")) {
            const std::u16string typed = co_await command.text(u"Enter new layer name: ");
            const std::u16string name = recordName(command, TableId::layer, typed);
            changeAll(command, objects, [&](Groups& change) { change.text(8, name); });
        } else if (option.is(u"LType")) {
            const std::u16string typed = co_await command.text(u"Enter new linetype name: ");
            const std::u16string name = recordName(command, TableId::ltype, typed);
            changeAll(command, objects, [&](Groups& change) { change.text(6, name); });
        } else if (option.is(u"LWeight")) {
            const Answer<double> weight =
                co_await command.number(u"Enter new lineweight: ", u"Default BYLayer BYBlock");
            const int hundredths =
                weight ? static_cast<int>(std::lround(100.0 * std::clamp(*weight, 0.0, 2.11)))
                : weight.is(u"BYLayer") ? -1
                : weight.is(u"BYBlock") ? -2
                                        : -3;
            changeAll(command, objects, [&](Groups& change) { change.integer(370, hundredths); });
        } else if (option.is(u"ltScale") || option.is(u"Thickness") || option.is(u"Elev")) {
            const Answer<double> size = co_await command.distance(u"Specify new value: ");
            if (!size) continue;
            if (option.is(u"Elev")) changeElevation(command, objects, *size);
            else {
                const int code = option.is(u"ltScale") ? 48 : 39;
                changeAll(command, objects, [&](Groups& change) { change.real(code, *size); });
            }
        } else {
            command.refuse(u"the option " + option.keyword + u" is not available in this host");
        }
    }
}

// ... a text: [style] [height] rotation text, each Enter keeps what there is
Task<> changeText(Command& command, Index object, std::optional<Point> at)
{
    const std::u16string style = co_await command.text(u"Enter new text style: ");
    Groups change = changeOf(command, object);
    if (at) {
        const Point place = UserPlane(command.drawing()).entity(*at);
        const drawing::TagList& tags = command.drawing().at(object).tags;
        const bool aligned = tags.integer(72) != 0 || tags.integer(73) != 0;
        change.point(aligned ? 11 : 10, place);
    }
    if (!style.empty()) change.text(7, recordName(command, TableId::style, style));
    const Answer<double> height = co_await command.distance(u"Specify new height: ");
    if (height) change.real(40, *height);
    const Answer<double> rotation = co_await command.direction(u"Specify new rotation angle: ");
    if (rotation) {
        change.real(50, UserPlane(command.drawing()).entityAngle(*rotation));
    }
    const std::u16string words = co_await command.text(u"Enter new text: ");
    if (!words.empty()) change.text(1, words);
    change.apply(command);
}

/// A line's nearer end goes to the point, a circle goes through it.
void changeByPoint(Command& command, Index object, Point at)
{
    const UserPlane plane(command.drawing());
    const drawing::Record& record = command.drawing().at(object);
    if (record.kind() == Kind::line) {
        const Point start = plane.user(record.tags.point(10)),
                    end = plane.user(record.tags.point(11));
        const bool first = length(start - at) < length(end - at);
        changeOf(command, object).point(first ? 10 : 11, plane.world(at)).apply(command);
    } else if (record.kind() == Kind::circle) {
        const Point world =
            entityToWorld(record.tags.point(210, {0.0, 0.0, 1.0}))(record.tags.point(10));
        changeOf(command, object).real(40, length(plane.world(at) - world)).apply(command);
    }
}

// CHANGE objects Properties ...|point|Enter, then what texts and inserts ask for
Task<> change(Command& command)
{
    const std::vector<Index> objects = co_await command.changeable();
    if (objects.empty()) co_return;
    const Answer<Point> point =
        co_await command.point(u"Specify change point or [Properties]: ", u"Properties");
    if (point.is(u"Properties")) {
        co_await properties(command, objects);
        co_return;
    }
    for (const Index object : objects) {
        const Kind kind = command.drawing().at(object).kind();
        if (kind == Kind::text) {
            co_await changeText(command, object, point.value);
        } else if (kind == Kind::insert) {
            const Answer<double> rotation =
                co_await command.direction(u"Specify new block rotation angle: ");
            Groups change = changeOf(command, object);
            const UserPlane plane(command.drawing());
            if (point) change.point(10, plane.entity(*point));
            if (rotation) change.real(50, plane.entityAngle(*rotation));
            change.apply(command);
        } else if (point) {
            changeByPoint(command, object, *point);
        }
    }
}

// CHPROP objects properties
Task<> chprop(Command& command)
{
    const std::vector<Index> objects = co_await command.changeable();
    if (!objects.empty()) co_await properties(command, objects);
}

// -- PURGE

struct PurgeKind
{
    std::u16string_view keyword;
    TableId table;
};
constexpr PurgeKind kPurgeKinds[] = {
    {u"Blocks", TableId::blockRecord}, {u"Dimstyles", TableId::dimstyle},
    {u"LAyers", TableId::layer},       {u"LTypes", TableId::ltype},
    {u"STyles", TableId::style},       {u"Regapps", TableId::appid},
};

/// Unused records of the table whose names match the patterns.
std::vector<Index> purgeable(Command& command, TableId table, std::u16string_view patterns)
{
    std::vector<Index> found = drawing::unusedRecords(command.drawing(), table);
    std::erase_if(found, [&](Index record) {
        return !text::matchesWildcard(drawing::text16(command.drawing().at(record).name()),
                                      patterns, text::Case::ignored);
    });
    return found;
}

// PURGE All|Blocks|Dimstyles|LAyers|LTypes|STyles|Regapps names Yes|No [Yes|No ...]
Task<> purge(Command& command)
{
    const Answer<NoValue> kind = co_await command.option(
        u"Enter type of unused objects to purge [Blocks/Dimstyles/LAyers/LTypes/STyles/Regapps/"
        u"All]: ",
        u"Blocks DEtailviewstyles Dimstyles Groups LAyers LTypes MAterials MUltileaderstyles "
        u"Plotstyles SHapes STyles SEctionviewstyles Tablestyles Visualstyles Regapps Zero Empty "
        u"Orphaned All");
    if (kind.isEnter()) co_return;
    std::vector<TableId> tables;
    for (const PurgeKind& one : kPurgeKinds)
        if (kind.is(one.keyword) || (kind.is(u"All") && one.table != TableId::appid)) {
            tables.push_back(one.table);
        }
    if (tables.empty()) {
        command.refuse(u"the option " + kind.keyword + u" is not available in this host");
    }
    std::u16string patterns = co_await command.text(u"Enter name(s) to purge <*>: ");
    if (patterns.empty()) patterns = u"*";
    const Answer<NoValue> verified =
        co_await command.option(u"Verify each name to be purged? [Yes/No] <Y>: ", u"Yes No");
    for (const TableId table : tables) {
        std::vector<Index> refused;
        // A block that goes may leave others unused.
        for (bool more = true; more;) {
            more = false;
            const std::vector<Index> records = purgeable(command, table, patterns);
            for (const Index record : records) {
                if (std::ranges::find(refused, record) != refused.end()) continue;
                if (!verified.is(u"No")) {
                    const Answer<NoValue> sure =
                        co_await command.option(u"Purge it? [Yes/No] <N>: ", u"Yes No");
                    if (!sure.is(u"Yes")) {
                        refused.push_back(record);
                        continue;
                    }
                }
                more = command.drawing().setErased(record, true) || more;
            }
        }
    }
}

constexpr Verb kTable[] = {{u"CHANGE", change}, {u"CHPROP", chprop}, {u"PURGE", purge}};

} // namespace

std::span<const Verb> changeVerbs() { return kTable; }

} // namespace orvald
