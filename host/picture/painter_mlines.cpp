// SPDX-License-Identifier: LicenseRef-ORVALD
// MLINE: parallel lines. Each vertex says along which direction the lines are set off there and how
// far, so nothing has to be offset or intersected; colours, ends and joints stand in the style.
#include "painter.h"

#include "drawing/text.h"

#include <algorithm>
#include <numbers>
#include <numeric>

namespace orvald::picture {

using drawing::Index;
using drawing::Point;
using drawing::Record;
using drawing::Tag;

namespace {

struct Vertex
{
    Point at, along, mitre; // world
    // Of each line: where it stands on the mitre, then the lengths along it, from there, at which
    // it begins, is cut, goes on ...
    std::vector<std::vector<double>> lines;

    Point of(std::size_t line) const
    {
        const bool known = line < lines.size() && !lines[line].empty();
        return known ? at + lines[line][0] * mitre : at;
    }
};

struct Element
{
    double offset = 0.0;
    int colour = 256;
    std::string_view lineType = "ByLayer";
};

struct Style
{
    enum Flags
    {
        filled = 1,
        joints = 2,
        startLine = 16,
        startArcs = 32,
        startRound = 64,
        endLine = 256,
        endArcs = 512,
        endRound = 1024,
        startCaps = startLine | startArcs | startRound,
        endCaps = endLine | endArcs | endRound
    };
    std::int64_t flags = 0;
    int fillColour = 256;
    std::vector<Element> elements;
};

std::vector<Vertex> verticesOf(const Record& record)
{
    std::vector<Vertex> vertices;
    bool inLine = false; // else the lengths belong to an area
    for (const Tag tag : record.tags) {
        Vertex* last = vertices.empty() ? nullptr : &vertices.back();
        if (tag.code() == 11) vertices.push_back({tag.point(), {}, {}, {}});
        else if (last == nullptr) continue;
        else if (tag.code() == 12) last->along = tag.point();
        else if (tag.code() == 13) last->mitre = tag.point();
        else if (tag.code() == 74) {
            last->lines.emplace_back();
            inLine = true;
        } else if (tag.code() == 75) {
            inLine = false;
        } else if (tag.code() == 41 && inLine) {
            last->lines.back().push_back(tag.real());
        }
    }
    return vertices;
}

int colourNumber(Tag tag) { return int(std::clamp<std::int64_t>(tag.integer(), 0, 256)); }

Style styleOf(const drawing::Drawing& drawing, const Record& record)
{
    Style style;
    Index index = drawing.byHandle(record.tags.handle(340));
    if (index == drawing::kNone)
        index = drawing.dictionaryEntry(
            drawing.dictionaryEntry(drawing.rootDictionary(), "ACAD_MLINESTYLE"),
            record.tags.text(2, "Standard"));
    if (index == drawing::kNone) return style;
    for (const Tag tag : drawing.at(index).tags) {
        Element* last = style.elements.empty() ? nullptr : &style.elements.back();
        if (tag.code() == 70) style.flags = tag.integer();
        else if (tag.code() == 49) style.elements.push_back({tag.real(), 256, "ByLayer"});
        else if (tag.code() == 62)
            (last != nullptr ? last->colour : style.fillColour) = colourNumber(tag);
        else if (tag.code() == 6 && last != nullptr) last->lineType = tag.text();
    }
    return style;
}

} // namespace

void Painter::mline(const Record& record, const Look& look, const Place& place)
{
    const std::vector<Vertex> vertices = verticesOf(record);
    const Style style = styleOf(drawing_, record);
    const std::size_t lines = vertices.empty() ? 0 : vertices.front().lines.size();
    const std::int64_t flags = record.tags.integer(71);
    const bool closed = (flags & 2) != 0;
    if (vertices.size() < 2 || lines == 0 || !spend(vertices.size() * lines)) return;

    const auto seen = [&](Point p) { return flat(place.map(p)); };
    const auto partOf = [&](std::size_t line) {
        Look own = look;
        if (line < style.elements.size()) {
            const Element& element = style.elements[line];
            // By layer and by block mean as the entity itself.
            if (element.colour > 0 && element.colour < 256)
                own.colour = numberedColour(element.colour, looks_.background());
            if (!drawing::sameName(element.lineType, "ByLayer") &&
                !drawing::sameName(element.lineType, "ByBlock"))
                own.lineType = looks_.lineType(element.lineType);
        }
        return own;
    };
    // The outer lines, at whose ends the caps stand.
    std::size_t low = 0, high = 0;
    for (std::size_t i = 0; i < std::min(lines, style.elements.size()); ++i) {
        if (style.elements[i].offset < style.elements[low].offset) low = i;
        if (style.elements[i].offset > style.elements[high].offset) high = i;
    }
    if (low == high) high = lines - 1;

    // From one line to another: straight, or round by way of a direction that has a length.
    const auto arcBetween = [&](Point from, Point to, Point outward) {
        const Point half = 0.5 * (to - from);
        const Point up = length(half) / length(outward) * outward;
        return Arc{seen(from + half), flat(place.map.direction(-1.0 * half)),
                   flat(place.map.direction(up)), 0.0, std::numbers::pi};
    };
    const Point back = -1.0 * vertices.front().along, on = vertices[vertices.size() - 2].along;
    constexpr std::int64_t kNoStartCaps = 4, kNoEndCaps = 8;
    const std::int64_t caps =
        (closed || (flags & kNoStartCaps) != 0 ? 0 : style.flags & Style::startCaps) |
        (closed || (flags & kNoEndCaps) != 0 ? 0 : style.flags & Style::endCaps);

    if ((style.flags & Style::filled) != 0) {
        Look area = look;
        if (style.fillColour > 0 && style.fillColour < 256)
            area.colour = numberedColour(style.fillColour, looks_.background());
        path_.clear();
        path_.moveTo(seen(vertices.front().of(low)));
        for (std::size_t i = 1; i < vertices.size(); ++i) path_.lineTo(seen(vertices[i].of(low)));
        const Point lastLow = vertices.back().of(low), lastHigh = vertices.back().of(high);
        if (closed) { // a ring between two outlines
            path_.close();
            path_.moveTo(seen(lastHigh));
        } else if ((caps & Style::endRound) != 0 && length(on) > 0.0) {
            path_.arcTo(arcBetween(lastLow, lastHigh, on), seen(lastHigh));
        } else {
            path_.lineTo(seen(lastHigh));
        }
        for (std::size_t i = vertices.size() - 1; i-- > 0;)
            path_.lineTo(seen(vertices[i].of(high)));
        if ((caps & Style::startRound) != 0 && length(back) > 0.0)
            path_.arcTo(arcBetween(vertices.front().of(high), vertices.front().of(low), back));
        path_.close();
        fill(path_, area, FillRule::evenOdd);
    }

    const double scale = scaleOf(place.map);
    for (std::size_t line = 0; line < lines; ++line) {
        const Look own = partOf(line);
        for (std::size_t i = 0; i + (closed ? 0 : 1) < vertices.size(); ++i) {
            const Vertex& from = vertices[i];
            const Point start = from.of(line), end = vertices[(i + 1) % vertices.size()].of(line);
            const std::vector<double> none;
            const std::vector<double>& stops = line < from.lines.size() ? from.lines[line] : none;
            path_.clear();
            for (std::size_t k = 1; k == 1 || k < stops.size(); k += 2) {
                const double begin = k < stops.size() ? stops[k] : 0.0;
                path_.moveTo(seen(start + begin * from.along));
                path_.lineTo(seen(k + 1 < stops.size() ? start + stops[k + 1] * from.along : end));
            }
            stroke(path_, own, scale);
        }
    }

    // Each half of a joint or cap has the look of the line at which it begins.
    const auto across = [&](const Vertex& vertex) {
        const Point a = vertex.of(low), b = vertex.of(high), middle = 0.5 * (a + b);
        for (const auto& [from, line] : {std::pair{a, low}, {b, high}}) {
            path_.clear();
            path_.moveTo(seen(from));
            path_.lineTo(seen(middle));
            stroke(path_, partOf(line), scale);
        }
    };
    const auto around = [&](const Vertex& vertex, std::size_t a, std::size_t b, Point outward) {
        if (!(length(outward) > 0.0)) return;
        for (const auto& [from, to] : {std::pair{a, b}, {b, a}}) {
            Arc arc = arcBetween(vertex.of(from), vertex.of(to), outward);
            arc.to = std::numbers::pi / 2.0;
            path_.clear();
            path_.moveTo(seen(vertex.of(from)));
            path_.arcTo(arc);
            stroke(path_, partOf(from), scale);
        }
    };
    if ((style.flags & Style::joints) != 0) {
        for (std::size_t i = closed ? 0 : 1; i + (closed ? 0 : 1) < vertices.size(); ++i)
            across(vertices[i]);
    }
    if ((caps & Style::startLine) != 0) across(vertices.front());
    if ((caps & Style::endLine) != 0) across(vertices.back());
    if ((caps & Style::startRound) != 0) around(vertices.front(), low, high, back);
    if ((caps & Style::endRound) != 0) around(vertices.back(), low, high, on);
    // The inner lines in pairs, the outermost of them first.
    std::vector<std::size_t> order(std::min(lines, style.elements.size()));
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return style.elements[a].offset < style.elements[b].offset;
    });
    for (std::size_t i = 1; 2 * i + 1 < order.size(); ++i) {
        const std::size_t a = order[i], b = order[order.size() - 1 - i];
        if ((caps & Style::startArcs) != 0) around(vertices.front(), a, b, back);
        if ((caps & Style::endArcs) != 0) around(vertices.back(), a, b, on);
    }
}

} // namespace orvald::picture
