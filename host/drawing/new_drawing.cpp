// SPDX-License-Identifier: LicenseRef-ORVALD
// Making a new drawing out of its text form.
#include "drawing/drawing.h"
#include "new_drawing_data.h"

#include <charconv>

namespace orvald::drawing {
namespace {

/// Takes the text before the next `mark` (or all of it) off the front.
std::string_view cut(std::string_view& rest, char mark)
{
    const std::size_t end = rest.find(mark);
    const std::string_view head = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return head;
}

std::string_view trim(std::string_view s)
{
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

template <class Number>
Number number(std::string_view s, int base = 10)
{
    Number value{};
    if constexpr (std::is_floating_point_v<Number>)
        std::from_chars(s.data(), s.data() + s.size(), value);
    else std::from_chars(s.data(), s.data() + s.size(), value, base);
    return value;
}

void addGroup(TagList& tags, int code, std::string_view value)
{
    TagKind kind = TagKind::text;
    fileKind(code, kind);
    switch (kind) {
    case TagKind::real: {
        const auto x = number<double>(cut(value, ' '));
        if (value.empty()) return tags.addReal(code, x);
        const auto y = number<double>(cut(value, ' '));
        return tags.addPoint(code, {x, y, number<double>(value)}, value.empty());
    }
    case TagKind::int16:
    case TagKind::int32:
    case TagKind::int64: return tags.addInteger(code, number<std::int64_t>(value));
    case TagKind::handle: return tags.addHandle(code, number<Handle>(value, 16));
    default: return tags.addText(code, value);
    }
}

/// One record of the text, from "0 TYPE" on.
struct Source
{
    Record record;
    bool inReactors = false, inDictionary = false;
    std::string_view key; // of the dictionary entry whose object comes next

    Source(std::string_view type, Family family) : record(type, family)
    {
        if (isDictionary(record.kind())) record.needExtras().dictionary.emplace();
    }
    void take(int code, std::string_view value)
    {
        const bool isEntry = isDictionary(record.kind()) && (code == 350 || code == 360);
        if (code == 5 || code == 105) record.handle = number<Handle>(value, 16);
        else if (code == 102) inReactors = value != "}";
        else if (code == 330 && inReactors)
            record.needExtras().reactors.push_back(number<Handle>(value, 16));
        else if (code == 330 && !record.tags.has(100)) record.owner = number<Handle>(value, 16);
        else if (isDictionary(record.kind()) && code == 3) key = value;
        else if (isEntry)
            record.needExtras().dictionary->load(key, number<Handle>(value, 16), code == 360);
        else addGroup(record.tags, code, value);
    }
};

Family familyOf(Kind kind)
{
    if (kind == Kind::table) return Family::tableHead;
    if (kind == Kind::block || kind == Kind::endblk) return Family::entity;
    return kind >= Kind::appid && kind <= Kind::vport ? Family::tableRecord : Family::object;
}

/// Takes a record in and hangs it where it belongs. Blocks follow their block records.
void enter(Drawing& drawing, Source&& source)
{
    const Index index = drawing.add(std::move(source.record));
    const Record& record = drawing.at(index);
    TableId table{};
    if (record.kind() == Kind::table && tableOf(record.name(), table)) {
        drawing.setTableHead(table, index);
    } else if (record.family() == Family::tableRecord && tableOf(record.typeName(), table)) {
        drawing.appendRecord(table, index);
    } else if (record.kind() == Kind::block) {
        drawing.edit(drawing.byHandle(record.owner)).needExtras().blockBegin = index;
    } else if (record.kind() == Kind::endblk) {
        drawing.edit(drawing.byHandle(record.owner)).needExtras().blockEnd = index;
    } else if (record.owner == 0) {
        drawing.setRootDictionary(index);
    }
}

} // namespace

std::vector<TagList> standardClasses()
{
    std::vector<TagList> rows;
    for (std::string_view rest = kNewClasses; !rest.empty();) {
        std::string_view line = cut(rest, '\n');
        if (line.empty()) continue;
        TagList& row = rows.emplace_back();
        for (const int code : {1, 2, 3}) row.addText(code, cut(line, '|'));
        row.addInteger(90, number<std::int64_t>(line));
        for (const int code : {91, 280, 281}) row.addInteger(code, 0);
    }
    return rows;
}

std::unique_ptr<Drawing> Drawing::createNew()
{
    auto drawing = std::make_unique<Drawing>();
    for (std::string_view rest = kNewHeader; !rest.empty();) {
        std::string_view line = cut(rest, '\n');
        if (line.empty()) continue;
        const std::string_view name = cut(line, ' ');
        const int code = number<int>(cut(line, ' '));
        addGroup(drawing->header.need(name), code, line);
    }
    drawing->classes = standardClasses();

    std::optional<Source> source;
    for (std::string_view rest = kNewRecords; !rest.empty();) {
        for (std::string_view line = cut(rest, '\n'); !line.empty();) {
            std::string_view group = trim(cut(line, '|'));
            if (group.empty()) continue;
            const int code = number<int>(cut(group, ' '));
            if (code != 0) {
                source->take(code, group);
                continue;
            }
            if (source) enter(*drawing, std::move(*source));
            source.emplace(group, familyOf(kindOf(group)));
        }
    }
    enter(*drawing, std::move(*source));
    return drawing;
}

} // namespace orvald::drawing
