// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading and checking what programs give.
#include "given.h"

#include "chain.h"
#include "drawing/text.h"
#include "resbuf/groups.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {
namespace {

constexpr std::size_t kMostXdata = 16383; // bytes in one object
constexpr std::size_t kMostXdataText = 255;
constexpr std::size_t kMtextPiece = 250; // characters in one group

/// Line weights in hundredths of a millimetre; -1 by layer, -2 by block, -3 default.
constexpr int kLineweights[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

/// True where a plane entity's points have no z in files.
bool isPlanar(Kind kind, int code, bool firstOfCode)
{
    if (kind == Kind::lwpolyline) return code == 10;
    if (kind == Kind::hatch) return code == 10 ? !firstOfCode : code == 11;
    if (kind == Kind::view) return code == 10;
    return kind == Kind::vport && code >= 10 && code <= 15;
}

std::size_t xdataSize(Tag tag)
{
    switch (tag.kind()) {
    case TagKind::text:
    case TagKind::binary: return 3 + tag.text().size();
    case TagKind::point3: return 26;
    case TagKind::int16: return 4;
    case TagKind::int32: return 6;
    default: return 10;
    }
}

} // namespace

ErrNo readGiven(const Drawing& drawing, const resbuf* chain, Given& given)
{
    bool inXdata = false, inBraces = false, sawMarker = false, sawPoint = false;
    Kind kind = Kind::other;
    std::size_t position = 0;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext, ++position) {
        const int code = node->restype;
        const bool isText = groupKind(code) == GroupKind::text;
        const std::u16string_view text =
            isText && node->resval.rstring != nullptr ? node->resval.rstring : u"";
        if (code == -1) {
            given.name = fromName(node->resval.rlname);
        } else if (code == -3) {
            inXdata = given.hasXdata = true;
        } else if (inXdata) {
            if (code < 1000 || !addNode(drawing, *node, false, given.xdata)) return ErrNo::badXdata;
        } else if (code == 0) {
            given.type = nameKey(fileForm(text));
            given.typeInFront = position <= 1;
            kind = kindOf(given.type);
        } else if (code == -2 || code == RTNIL) {
            continue;
        } else if (code == 102 && !sawMarker) {
            inBraces = text != u"}";
        } else if (inBraces) {
            continue;
        } else if (code == 5 || code == 105) {
            TagList handle;
            if (addNode(drawing, *node, false, handle)) given.handle = (*handle.begin()).handle();
        } else if (code == 330 && !sawMarker) {
            continue; // the owner
        } else if ((code == 67 || code == 410) && kind != Kind::xrecord) {
            given.hasSpace = true;
            if (code == 67) given.paper = node->resval.rint != 0;
            else given.layout = fileForm(text);
        } else {
            const bool planar = isPlanar(kind, code, !sawPoint);
            sawPoint = sawPoint || code == 10;
            sawMarker = sawMarker || code == 100;
            if (!addNode(drawing, *node, planar, given.groups)) return ErrNo::badType;
        }
    }
    return ErrNo::none;
}

ErrNo checkXdata(const Drawing& drawing, const TagList& xdata)
{
    std::vector<std::string> seen;
    std::size_t size = 0;
    int depth = 0;
    for (const Tag tag : xdata) {
        const int code = tag.code();
        if (seen.empty() && code != 1001) return ErrNo::badXdata;
        size += xdataSize(tag);
        if (code == 1001) {
            const std::string key = nameKey(tag.text());
            if (depth != 0 || std::find(seen.begin(), seen.end(), key) != seen.end())
                return ErrNo::badXdata;
            if (drawing.findRecord(TableId::appid, tag.text()) == kNone) return ErrNo::noApp;
            seen.push_back(key);
        } else if (code == 1002) {
            if (tag.text() == "{") ++depth;
            else if (tag.text() == "}") --depth;
            else return ErrNo::badXdata;
            if (depth < 0) return ErrNo::badXdata;
        } else if (code == 1000 && text8(tag.text()).size() > kMostXdataText) {
            return ErrNo::badXdata;
        }
    }
    if (depth != 0) return ErrNo::badXdata;
    return size > kMostXdata ? ErrNo::xdataTooBig : ErrNo::none;
}

void mergeXdata(TagList& xdata, const TagList& given)
{
    for (auto it = given.begin(); it != given.end();) {
        auto end = std::next(it);
        while (end != given.end() && (*end).code() != 1001) ++end;
        TagList block;
        for (auto at = it; at != end; ++at) block.add(*at);
        const bool removes = std::next(it) == end;
        auto old = xdata.begin();
        while (old != xdata.end() &&
               !((*old).code() == 1001 && sameName((*old).text(), (*it).text())))
            ++old;
        if (old != xdata.end()) {
            auto oldEnd = std::next(old);
            while (oldEnd != xdata.end() && (*oldEnd).code() != 1001) ++oldEnd;
            old = xdata.erase(old, oldEnd);
        }
        if (!removes) xdata.insert(old, block);
        it = end;
    }
}

ErrNo checkRecord(const Drawing& drawing, const Record& record)
{
    const TagList& tags = record.tags;
    const auto known = [&](TableId table, std::string_view name) {
        return drawing.findRecord(table, name) != kNone;
    };
    if (record.isEntity()) {
        if (!isSymbolName(record.layer())) return ErrNo::badLayer;
        const std::string_view linetype = tags.text(6, "ByLayer");
        if (!known(TableId::ltype, linetype)) return ErrNo::badLinetype;
        const std::int64_t colour = tags.integer(62, 256);
        if (colour < 0 || colour > 257) return ErrNo::badColour;
    }
    if (!record.isEntity() && record.kind() != Kind::layer) return ErrNo::none;
    const std::int64_t weight = tags.integer(370, -1);
    if (std::find(std::begin(kLineweights), std::end(kLineweights), weight) ==
        std::end(kLineweights))
        return ErrNo::badValue;
    if (tags.has(210) && record.isEntity()) {
        const double size = length(tags.point(210));
        if (!(size > 0.0) || !std::isfinite(size)) return ErrNo::badNormal;
    }
    switch (record.kind()) {
    case Kind::text:
    case Kind::attrib:
    case Kind::attdef:
    case Kind::mtext:
        if (!known(TableId::style, tags.text(7, "Standard"))) return ErrNo::badStyle;
        if (!(tags.real(40, 1.0) > 0.0)) return ErrNo::badValue;
        break;
    case Kind::insert:
        if (!known(TableId::blockRecord, tags.text(2))) return ErrNo::badType;
        break;
    case Kind::dimension:
        if (tags.has(2) && !known(TableId::blockRecord, tags.text(2))) return ErrNo::badType;
        [[fallthrough]];
    case Kind::leader:
    case Kind::tolerance:
        if (!known(TableId::dimstyle, tags.text(3, "Standard"))) return ErrNo::badStyle;
        break;
    case Kind::circle:
    case Kind::arc:
        if (!(tags.real(40) > 0.0)) return ErrNo::badValue;
        break;
    case Kind::ellipse: {
        const double ratio = tags.real(40);
        if (!(ratio > 0.0 && ratio <= 1.0) || !(length(tags.point(11)) > 0.0))
            return ErrNo::badValue;
        break;
    }
    case Kind::layer:
        if (!known(TableId::ltype, tags.text(6, "Continuous"))) return ErrNo::badLinetype;
        if (tags.integer(62, 7) == 0 || std::abs(tags.integer(62, 7)) > 255)
            return ErrNo::badColour;
        break;
    default: break;
    }
    return ErrNo::none;
}

std::u16string mtextOf(const TagList& tags)
{
    // Joined as text: the end of one piece and the front of the next make no escape together.
    std::u16string text;
    for (const Tag tag : tags)
        if (tag.code() == 3) text += text16(tag.text());
    return text += text16(tags.text(1));
}

void addMtextPieces(TagList& tags, std::u16string_view rest)
{
    while (rest.size() > kMtextPiece) {
        std::size_t size = kMtextPiece;
        std::string piece;
        for (;; --size) { // escapes make the written piece longer than its text
            const bool inPair = text::isHighSurrogate(rest[size - 1]) && size > 1;
            if (inPair) continue;
            piece = fileForm(rest.substr(0, size));
            if (utf16(piece).size() <= kMtextPiece || size == 1) break;
        }
        tags.addText(3, piece);
        rest.remove_prefix(size);
    }
    tags.addText(1, fileForm(rest));
}

void addVertices(TagList& tags, const TagList& from, double width)
{
    for (auto it = from.find(10); it != from.end(); it = from.find(10, it)) {
        const Point p = (*it).point();
        double start = width, end = width, bulge = 0.0;
        std::int64_t number = 0;
        for (++it; it != from.end() && (*it).code() != 10; ++it) {
            const int code = (*it).code();
            if (code == 40) start = (*it).real();
            else if (code == 41) end = (*it).real();
            else if (code == 42) bulge = (*it).real();
            else if (code == 91) number = (*it).integer();
        }
        tags.addPoint(10, p, true);
        if (start != width || end != width) {
            tags.addReal(40, start);
            tags.addReal(41, end);
        }
        if (bulge != 0.0) tags.addReal(42, bulge);
        if (number != 0) tags.addInteger(91, number);
    }
}

} // namespace orvald::drawing
