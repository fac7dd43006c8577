// SPDX-License-Identifier: LicenseRef-ORVALD
// The packed list of groups: a head of 4 bytes (code 16 bit, kind, short length), then the value.
#include "drawing/tags.h"

#include "resbuf/groups.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <new>

namespace orvald::drawing {
namespace {

constexpr std::int8_t kNoKind = -1;

std::array<std::int8_t, 1072> makeKinds()
{
    std::array<std::int8_t, 1072> kinds{};
    for (int code = 0; code < 1072; ++code) {
        TagKind kind = TagKind::text;
        bool known = true;
        switch (groupKind(code)) {
        case GroupKind::none: known = false; break;
        case GroupKind::text: kind = TagKind::text; break;
        case GroupKind::point:
        case GroupKind::real: kind = TagKind::real; break;
        case GroupKind::int16: kind = TagKind::int16; break;
        case GroupKind::int32: kind = TagKind::int32; break;
        case GroupKind::int64: kind = TagKind::int64; break;
        case GroupKind::binary: kind = TagKind::binary; break;
        case GroupKind::handle:
        case GroupKind::object: kind = TagKind::handle; break;
        }
        kinds[static_cast<std::size_t>(code)] = known ? static_cast<std::int8_t>(kind) : kNoKind;
    }
    return kinds;
}

} // namespace

bool fileKind(int code, TagKind& kind)
{
    static const std::array<std::int8_t, 1072> kinds = makeKinds();
    if (code < 0 || code >= static_cast<int>(kinds.size())) return false;
    const std::int8_t found = kinds[static_cast<std::size_t>(code)];
    if (found == kNoKind) return false;
    kind = static_cast<TagKind>(found);
    return true;
}

std::string handleText(Handle handle)
{
    char digits[17];
    std::string text(digits, std::to_chars(digits, digits + sizeof digits, handle, 16).ptr);
    for (char& c : text)
        if (c >= 'a') c = static_cast<char>(c - 32);
    return text;
}

double Tag::real() const
{
    switch (kind()) {
    case TagKind::real:
    case TagKind::point2:
    case TagKind::point3: return read<double>(4);
    case TagKind::int16:
    case TagKind::int32:
    case TagKind::int64: return static_cast<double>(integer());
    default: return 0.0;
    }
}

std::int64_t Tag::integer() const
{
    switch (kind()) {
    case TagKind::int16: return read<std::int16_t>(4);
    case TagKind::int32: return read<std::int32_t>(4);
    case TagKind::int64: return read<std::int64_t>(4);
    case TagKind::real: {
        const double value = std::trunc(read<double>(4));
        constexpr double top = 9223372036854775808.0; // 2^63
        if (value >= top) return std::numeric_limits<std::int64_t>::max();
        if (value <= -top) return std::numeric_limits<std::int64_t>::min();
        return static_cast<std::int64_t>(value);
    }
    default: return 0;
    }
}

Point Tag::point() const
{
    switch (kind()) {
    case TagKind::point3: return {read<double>(4), read<double>(12), read<double>(20)};
    case TagKind::point2: return {read<double>(4), read<double>(12), 0.0};
    default: return {real(), 0.0, 0.0};
    }
}

TagList& TagList::operator=(const TagList& other)
{
    if (this != &other) {
        clear();
        append(other);
    }
    return *this;
}

void TagList::clear()
{
    if (block_ != nullptr) head().size = 0;
}

void TagList::shrink()
{
    if (block_ != nullptr && head().size != head().room) setRoom(head().size);
}

void TagList::setRoom(std::size_t room)
{
    if (room > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    if (room == 0) {
        block_.reset();
        return;
    }
    const std::size_t used = size();
    auto block = std::make_unique_for_overwrite<std::byte[]>(sizeof(Head) + room);
    new (block.get()) Head{static_cast<std::uint32_t>(used), static_cast<std::uint32_t>(room)};
    if (used != 0) std::memcpy(block.get() + sizeof(Head), bytes(), used);
    block_ = std::move(block);
}

std::byte* TagList::grow(std::size_t more)
{
    const std::size_t used = size();
    const std::size_t room = block_ == nullptr ? 0 : head().room;
    // The first block fits exactly: a copied or loaded list seldom grows.
    if (used + more > room) setRoom(room == 0 ? more : std::max(used + more, 2 * room));
    head().size = static_cast<std::uint32_t>(used + more);
    return bytes() + used;
}

std::byte* TagList::startTag(int code, TagKind kind, std::size_t payload)
{
    std::byte* at = grow(4 + payload);
    const auto code16 = static_cast<std::int16_t>(code);
    std::memcpy(at, &code16, sizeof code16);
    at[2] = static_cast<std::byte>(kind);
    at[3] = std::byte{0};
    return at + 4;
}

void TagList::addBlock(int code, TagKind kind, std::string_view text)
{
    if (text.size() < Tag::kLong) {
        std::byte* at = startTag(code, kind, text.size());
        at[-1] = static_cast<std::byte>(text.size());
        if (!text.empty()) std::memcpy(at, text.data(), text.size());
        return;
    }
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - 16) throw std::bad_alloc();
    std::byte* at = startTag(code, kind, 4 + text.size());
    const auto size = static_cast<std::uint32_t>(text.size());
    at[-1] = std::byte{Tag::kLong};
    std::memcpy(at, &size, sizeof size);
    std::memcpy(at + 4, text.data(), text.size());
}

void TagList::addText(int code, std::string_view text) { addBlock(code, TagKind::text, text); }
void TagList::addBinary(int code, std::string_view bytes)
{
    addBlock(code, TagKind::binary, bytes);
}

void TagList::addReal(int code, double value)
{
    std::memcpy(startTag(code, TagKind::real, sizeof value), &value, sizeof value);
}

void TagList::addInteger(int code, std::int64_t value)
{
    TagKind kind = TagKind::int64;
    fileKind(code, kind);
    const bool fits16 = value == static_cast<std::int16_t>(value);
    const bool fits32 = value == static_cast<std::int32_t>(value);
    if (kind == TagKind::int16 && fits16) {
        const auto v = static_cast<std::int16_t>(value);
        std::memcpy(startTag(code, TagKind::int16, sizeof v), &v, sizeof v);
    } else if (kind != TagKind::int64 && fits32) {
        const auto v = static_cast<std::int32_t>(value);
        std::memcpy(startTag(code, TagKind::int32, sizeof v), &v, sizeof v);
    } else {
        std::memcpy(startTag(code, TagKind::int64, sizeof value), &value, sizeof value);
    }
}

void TagList::addPoint(int code, Point p, bool planar)
{
    const double values[3] = {p.x, p.y, p.z};
    const std::size_t size = (planar ? 2 : 3) * sizeof(double);
    std::memcpy(startTag(code, planar ? TagKind::point2 : TagKind::point3, size), values, size);
}

void TagList::addHandle(int code, Handle handle)
{
    std::memcpy(startTag(code, TagKind::handle, sizeof handle), &handle, sizeof handle);
}

void TagList::add(Tag tag)
{
    const std::size_t size = tag.size();
    if (block_ != nullptr && tag.data() >= bytes() && tag.data() < bytes() + head().size) {
        const std::size_t offset = static_cast<std::size_t>(tag.data() - bytes());
        std::byte* at = grow(size); // the group lies in this list, which may have moved
        std::memcpy(at, bytes() + offset, size);
        return;
    }
    std::memcpy(grow(size), tag.data(), size);
}

void TagList::append(const TagList& other)
{
    const std::size_t more = other.size();
    if (more == 0) return;
    std::byte* at = grow(more);
    std::memcpy(at, other.bytes(), more);
}

TagList::Iterator TagList::find(int code, Iterator from) const
{
    const Iterator last = end();
    while (from != last && (*from).code() != code) ++from;
    return from;
}

TagList::Iterator TagList::findMarker(std::string_view marker) const
{
    for (Iterator it = begin(); it != end(); ++it)
        if ((*it).code() == 100 && (*it).text() == marker) return it;
    return end();
}

double TagList::real(int code, double none) const
{
    const Iterator it = find(code);
    return it == end() ? none : (*it).real();
}
std::int64_t TagList::integer(int code, std::int64_t none) const
{
    const Iterator it = find(code);
    return it == end() ? none : (*it).integer();
}
std::string_view TagList::text(int code, std::string_view none) const
{
    const Iterator it = find(code);
    return it == end() ? none : (*it).text();
}
Handle TagList::handle(int code, Handle none) const
{
    const Iterator it = find(code);
    return it == end() ? none : (*it).handle();
}
Point TagList::point(int code, Point none) const
{
    const Iterator it = find(code);
    return it == end() ? none : (*it).point();
}

TagList::Iterator TagList::erase(Iterator first, Iterator last)
{
    const std::size_t from = static_cast<std::size_t>(first.at() - bytes());
    const std::size_t to = static_cast<std::size_t>(last.at() - bytes());
    if (from != to) {
        std::memmove(bytes() + from, bytes() + to, size() - to);
        head().size -= static_cast<std::uint32_t>(to - from);
    }
    return first;
}

TagList::Iterator TagList::erase(Iterator at) { return erase(at, std::next(at)); }

TagList::Iterator TagList::insert(Iterator at, const TagList& other)
{
    const std::size_t offset = block_ == nullptr ? 0 : static_cast<std::size_t>(at.at() - bytes());
    const std::size_t more = other.size(), tail = size() - offset;
    if (more == 0) return at;
    grow(more);
    std::byte* place = bytes() + offset;
    std::memmove(place + more, place, tail);
    std::memcpy(place, other.bytes(), more);
    return Iterator(place);
}

TagList::Iterator TagList::replace(Iterator at, const TagList& other)
{
    return insert(erase(at), other);
}

void TagList::setHandle(Iterator at, Handle handle)
{
    std::byte* place = bytes() + (at.at() - bytes());
    std::memcpy(place + 4, &handle, sizeof handle);
}

} // namespace orvald::drawing
