// SPDX-License-Identifier: LicenseRef-ORVALD
// Conversion at the border between records and result buffers.
#include "chain.h"

#include "angles.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "resbuf/groups.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

namespace orvald::drawing {
namespace {

constexpr std::size_t kMostBinary = 127; // bytes in one group: 254 digits of a line

// A quiet NaN with a payload that no computation makes.
constexpr std::uint64_t kPlanarBits = 0x7FF8'4F52'5650'4C4Eu;

std::u16string_view textOf(const resbuf& node)
{
    return node.resval.rstring == nullptr ? std::u16string_view() : node.resval.rstring;
}

bool parseHandle(std::u16string_view text, Handle& handle)
{
    const std::string digits = utf8(text);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), handle, 16);
    return error == std::errc() && end == digits.data() + digits.size() && !digits.empty() &&
           handle >> 63 == 0;
}

} // namespace

double planarZ() { return std::bit_cast<double>(kPlanarBits); }
bool isPlanarMark(double z) { return std::bit_cast<std::uint64_t>(z) == kPlanarBits; }

ChainBuilder::~ChainBuilder() { releaseChain(first_); }

resbuf* ChainBuilder::take()
{
    end_ = &first_;
    return std::exchange(first_, nullptr);
}

resbuf& ChainBuilder::node(int code)
{
    resbuf* made = acutNewRb(code);
    if (made == nullptr) throw std::bad_alloc();
    *end_ = made;
    end_ = &made->rbnext;
    return *made;
}

void ChainBuilder::text(int code, std::u16string_view value)
{
    resbuf& made = node(code);
    made.resval.rstring = newString(value.data(), value.size());
    if (made.resval.rstring == nullptr) throw std::bad_alloc();
}

void ChainBuilder::name(int code, ObjectId id) { toName(id, node(code).resval.rlname); }

void ChainBuilder::tag(const Drawing& drawing, Tag tag, bool markPlanar)
{
    const int code = tag.code();
    switch (groupKind(code)) {
    case GroupKind::none: break;
    case GroupKind::text:
        if (tag.isText()) text(code, text16(tag.text()));
        break;
    case GroupKind::handle:
        if (tag.kind() == TagKind::handle) text(code, utf16(handleText(tag.handle())));
        break;
    case GroupKind::object:
        if (tag.kind() == TagKind::handle) name(code, drawing.idOf(drawing.byHandle(tag.handle())));
        break;
    case GroupKind::real:
        node(code).resval.rreal = isAngle(code) ? toRadians(tag.real()) : tag.real();
        break;
    case GroupKind::point: {
        const Point p = tag.point();
        const bool mark = markPlanar && tag.kind() == TagKind::point2;
        ads_real* to = node(code).resval.rpoint;
        to[0] = p.x, to[1] = p.y, to[2] = mark ? planarZ() : p.z;
        break;
    }
    case GroupKind::int16: node(code).resval.rint = static_cast<short>(tag.integer()); break;
    case GroupKind::int32:
        node(code).resval.rlong = static_cast<std::int32_t>(tag.integer());
        break;
    case GroupKind::int64: node(code).resval.mnInt64 = tag.integer(); break;
    case GroupKind::binary: {
        const std::string_view bytes = tag.bytes();
        constexpr std::size_t most = std::numeric_limits<short>::max();
        if (tag.kind() != TagKind::binary || bytes.size() > most) break;
        ads_binary& to = node(code).resval.rbinary;
        to.buf = static_cast<char*>(std::malloc(std::max<std::size_t>(bytes.size(), 1)));
        if (to.buf == nullptr) throw std::bad_alloc();
        std::copy(bytes.begin(), bytes.end(), to.buf);
        to.clen = static_cast<short>(bytes.size());
        break;
    }
    }
}

void ChainBuilder::list(const Drawing& drawing, const TagList& tags, bool markPlanar)
{
    for (const Tag t : tags) tag(drawing, t, markPlanar);
}

bool addNode(const Drawing& drawing, const resbuf& node, bool planar, TagList& tags)
{
    const int code = node.restype;
    switch (groupKind(code)) {
    case GroupKind::none: return false;
    case GroupKind::text: tags.addText(code, fileForm(textOf(node))); return true;
    case GroupKind::handle: {
        Handle handle = 0;
        if (!parseHandle(textOf(node), handle)) return false;
        tags.addHandle(code, handle);
        return true;
    }
    case GroupKind::object: {
        const ObjectId id = fromName(node.resval.rlname);
        const Index index = drawing.indexOf(id);
        if (index == kNone && !id.isNull()) return false;
        tags.addHandle(code, index == kNone ? 0 : drawing.at(index).handle);
        return true;
    }
    case GroupKind::real: {
        const double value = node.resval.rreal;
        if (!std::isfinite(value)) return false;
        tags.addReal(code, isAngle(code) ? toDegrees(value) : value);
        return true;
    }
    case GroupKind::point: {
        const ads_real* from = node.resval.rpoint;
        const bool marked = isPlanarMark(from[2]);
        const Point p{from[0], from[1], marked ? 0.0 : from[2]};
        if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return false;
        if (!beginsPoint(code)) return false; // y and z have no groups of their own in chains
        tags.addPoint(code, p, planar || marked);
        return true;
    }
    case GroupKind::int16: tags.addInteger(code, node.resval.rint); return true;
    case GroupKind::int32: tags.addInteger(code, node.resval.rlong); return true;
    case GroupKind::int64: tags.addInteger(code, node.resval.mnInt64); return true;
    case GroupKind::binary: {
        const ads_binary& from = node.resval.rbinary;
        if (from.clen < 0 || (from.clen > 0 && from.buf == nullptr)) return false;
        std::string_view rest(from.buf, static_cast<std::size_t>(from.clen));
        do {
            tags.addBinary(code, rest.substr(0, kMostBinary));
            rest.remove_prefix(std::min(kMostBinary, rest.size()));
        } while (!rest.empty());
        return true;
    }
    }
    return false;
}

} // namespace orvald::drawing
