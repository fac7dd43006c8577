// SPDX-License-Identifier: LicenseRef-ORVALD
// A record's groups, packed one behind the other: group code, kind of value, value.
// Values keep the form of the file (angles of groups 50 to 58 in degrees, text in file form), and a
// kind of its own each, so that what nobody touched is written back as it came.
#pragma once

#include "drawing/point.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace orvald::drawing {

/// Persistent name of an object within its drawing; 0 is none.
using Handle = std::uint64_t;
/// "1F", as handles are written.
std::string handleText(Handle handle);

enum class TagKind : std::uint8_t
{
    text,   // file form
    real,   // finite
    int16,  //
    int32,  //
    int64,  //
    point2, // x, y: two groups of the file
    point3, // x, y, z: three groups of the file
    handle, //
    binary  // bytes
};

/// Kind of value that the file has under a group code; points are real there, one group a
/// coordinate. False for codes that do not exist.
bool fileKind(int code, TagKind& kind);
/// True for the x of a point: the groups code + 10 and, where there is one, code + 20 belong to it.
constexpr bool beginsPoint(int code)
{
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) ||
           (code >= 210 && code <= 219) || (code >= 1010 && code <= 1013);
}
/// True for groups that hold the handle of another object: 320 to 369, 390 to 399, 480, 481, 1005.
constexpr bool isReference(int code)
{
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 ||
           code == 481 || code == 1005;
}
/// True for angles that files give in degrees and programs in radians.
constexpr bool isAngle(int code) { return code >= 50 && code <= 58; }

/// One group inside a TagList; valid until the list changes.
class Tag
{
public:
    explicit Tag(const std::byte* at) : at_(at) {}

    int code() const { return read<std::int16_t>(0); }
    TagKind kind() const { return static_cast<TagKind>(at_[2]); }
    bool isText() const { return kind() == TagKind::text; }
    bool isInteger() const { return kind() >= TagKind::int16 && kind() <= TagKind::int64; }
    bool isPoint() const { return kind() == TagKind::point2 || kind() == TagKind::point3; }

    /// Text in file form, or bytes; empty for other kinds.
    std::string_view text() const
    {
        if (kind() != TagKind::text && kind() != TagKind::binary) return {};
        const auto size = static_cast<std::uint8_t>(at_[3]);
        if (size != kLong) return {reinterpret_cast<const char*>(at_ + 4), size};
        return {reinterpret_cast<const char*>(at_ + 8), read<std::uint32_t>(4)};
    }
    std::string_view bytes() const { return text(); }
    /// Any number as a real (a point's x), 0.0 for the other kinds.
    double real() const;
    /// Any whole number; a real is cut and held to 64 bits; 0 for the other kinds.
    std::int64_t integer() const;
    /// A point, z 0.0 when it has none; a lone real as x.
    Point point() const;
    Handle handle() const { return kind() == TagKind::handle ? read<Handle>(4) : 0; }

    /// Where the group lies and how many bytes it takes in its list.
    const std::byte* data() const { return at_; }
    std::size_t size() const
    {
        switch (kind()) {
        case TagKind::text:
        case TagKind::binary: {
            const auto size = static_cast<std::uint8_t>(at_[3]);
            return size != kLong ? 4u + size : 8u + read<std::uint32_t>(4);
        }
        case TagKind::int16: return 6;
        case TagKind::int32: return 8;
        case TagKind::real:
        case TagKind::int64:
        case TagKind::handle: return 12;
        case TagKind::point2: return 20;
        case TagKind::point3: return 28;
        }
        return 4;
    }
    /// Same code, kind and value to the last bit.
    friend bool operator==(Tag a, Tag b)
    {
        const std::size_t size = a.size();
        return size == b.size() && std::memcmp(a.at_, b.at_, size) == 0;
    }

    static constexpr std::uint8_t kLong = 255; // a 32-bit length follows the head

private:
    template <class T>
    T read(std::size_t offset) const
    {
        T value;
        std::memcpy(&value, at_ + offset, sizeof value);
        return value;
    }
    const std::byte* at_;
};

/// An owning list of groups in one block of memory. Copies are deep. Positions are iterators; every
/// change makes all of them invalid but the one it returns.
class TagList
{
public:
    class Iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Tag;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = Tag;

        Iterator() = default;
        explicit Iterator(const std::byte* at) : at_(at) {}
        Tag operator*() const { return Tag(at_); }
        Iterator& operator++()
        {
            at_ += Tag(at_).size();
            return *this;
        }
        Iterator operator++(int)
        {
            const Iterator old = *this;
            ++*this;
            return old;
        }
        friend bool operator==(Iterator, Iterator) = default;
        const std::byte* at() const { return at_; }

    private:
        const std::byte* at_ = nullptr;
    };

    TagList() = default;
    TagList(const TagList& other) { append(other); }
    TagList(TagList&& other) noexcept = default;
    TagList& operator=(const TagList& other);
    TagList& operator=(TagList&& other) noexcept = default;
    ~TagList() = default;

    Iterator begin() const { return Iterator(bytes()); }
    Iterator end() const { return Iterator(bytes() + size()); }
    bool empty() const { return size() == 0; }
    /// Bytes in use.
    std::size_t size() const { return block_ == nullptr ? 0 : head().size; }
    /// Bytes of memory that the list owns.
    std::size_t memory() const { return block_ == nullptr ? 0 : head().room + sizeof(Head); }
    void clear();
    /// Gives back memory that is not in use.
    void shrink();

    // Appending. Reals must be finite, text in file form.
    void addText(int code, std::string_view fileForm);
    void addReal(int code, double value);
    /// In the kind of the code, or a wider one when it does not fit.
    void addInteger(int code, std::int64_t value);
    void addPoint(int code, Point p, bool planar = false);
    void addHandle(int code, Handle handle);
    void addBinary(int code, std::string_view bytes);
    void add(Tag tag);
    void append(const TagList& other);

    /// First group with that code at or after `from`; end() when there is none.
    Iterator find(int code, Iterator from) const;
    Iterator find(int code) const { return find(code, begin()); }
    bool has(int code) const { return find(code) != end(); }
    /// Position of the subclass marker (group 100) of that name, end() when absent.
    Iterator findMarker(std::string_view marker) const;

    // Values of the first group with that code, or what is given for none.
    double real(int code, double none = 0.0) const;
    std::int64_t integer(int code, std::int64_t none = 0) const;
    std::string_view text(int code, std::string_view none = {}) const;
    Handle handle(int code, Handle none = 0) const;
    Point point(int code, Point none = {}) const;

    /// Takes groups away; gives the position of what followed.
    Iterator erase(Iterator first, Iterator last);
    Iterator erase(Iterator at);
    /// Puts groups before `at`; gives the position of the first of them. `other` is another list.
    Iterator insert(Iterator at, const TagList& other);
    /// Replaces the group at `at`; gives its position.
    Iterator replace(Iterator at, const TagList& other);
    /// Writes another handle into the handle group at `at`, without moving anything.
    void setHandle(Iterator at, Handle handle);

    friend bool operator==(const TagList& a, const TagList& b)
    {
        return a.size() == b.size() &&
               (a.empty() || std::memcmp(a.bytes(), b.bytes(), a.size()) == 0);
    }

private:
    struct Head
    {
        std::uint32_t size, room; // bytes in use, bytes behind the head
    };
    const Head& head() const { return *reinterpret_cast<const Head*>(block_.get()); }
    Head& head() { return *reinterpret_cast<Head*>(block_.get()); }
    const std::byte* bytes() const
    {
        return block_ == nullptr ? nullptr : block_.get() + sizeof(Head);
    }
    std::byte* bytes() { return block_ == nullptr ? nullptr : block_.get() + sizeof(Head); }
    void setRoom(std::size_t room);
    std::byte* grow(std::size_t size);
    std::byte* startTag(int code, TagKind kind, std::size_t payload);
    void addBlock(int code, TagKind kind, std::string_view bytes);

    std::unique_ptr<std::byte[]> block_;
};

} // namespace orvald::drawing
