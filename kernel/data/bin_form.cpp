// SPDX-License-Identifier: LicenseRef-ORVALD
// The binary form of a data item. Counts that come from a file are checked against the bytes that
// are left before anything is made for them, and open lists and directories stand on a stack of our
// own.
#include "bin_form.h"

#include "kex/entity.h"
#include "kexdata/list_builder.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace KEX {
namespace {

using Kind = CKexDataItem::Kind;

constexpr std::string_view kMagic = "KEXB";
constexpr std::uint16_t kVersion = 1;
constexpr std::uint16_t kFlags = 0;
constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kCheckSize = 4;

enum Tag : std::uint8_t
{
    kNil,
    kT,
    kInteger,
    kReal,
    kText,
    kPoint3d,
    kPoint2d,
    kList,
    kDottedList,
    kDirectory,
    kHandle
};
constexpr char kTextKey = 'S';
constexpr char kIntegerKey = 'I';

class Writer
{
public:
    explicit Writer(const BinOptions& options, const HandleTable* handles = nullptr)
        : options_(options), handles_(handles)
    {
    }

    void node(const CKexDataItem& item)
    {
        begin(item);
        drain();
    }
    void directory(const CKexDataDir& dir)
    {
        beginDirectory(dir);
        drain();
    }
    std::string file() &&
    {
        KEX_ASSERT(bytes_.size() <= std::numeric_limits<std::uint32_t>::max(),
                   "a data file holds less than 4 GB");
        std::string payload = std::exchange(bytes_, std::string(kMagic));
        number(kVersion);
        number(kFlags);
        number(static_cast<std::uint32_t>(payload.size()));
        bytes_ += payload;
        number(crc32(payload));
        return std::move(bytes_);
    }

private:
    struct Child
    {
        DataKeyView key;
        const CKexDataItem* item;
    };
    /// Children of an open directory, the last one first.
    using Children = std::vector<Child>;

    template <class Number>
    void number(Number value)
    {
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            bytes_ += static_cast<char>(value >> (8 * i) & 0xFF);
        }
    }
    void tag(Tag value) { bytes_ += static_cast<char>(value); }
    void integer(int value) { number(static_cast<std::uint32_t>(value)); }
    void real(double value) { number(std::bit_cast<std::uint64_t>(value)); }
    void count(std::size_t value) { number(static_cast<std::uint32_t>(value)); }
    void text(TextView value)
    {
        const std::string utf8 = toUtf8(value);
        count(utf8.size());
        bytes_ += utf8;
    }

    /// Writes an item whole, but for the children of a directory, which then stands on the stack.
    void begin(const CKexDataItem& item)
    {
        if (item.isDir()) beginDirectory(*item.getDir());
        else if (item.isList()) list(item);
        else atom(item);
    }

    void beginDirectory(const CKexDataDir& dir)
    {
        Children children;
        for (const auto child : dir) {
            const bool skipped = options_.skips != nullptr && options_.skips(child.key);
            if (!skipped) children.push_back({child.key, &child.item});
        }
        if (options_.sorted) {
            std::sort(children.begin(), children.end(),
                      [](const Child& a, const Child& b) { return a.key < b.key; });
        }
        std::reverse(children.begin(), children.end());
        tag(kDirectory);
        count(children.size());
        open_.push_back(std::move(children));
    }

    void drain()
    {
        while (!open_.empty()) {
            if (open_.back().empty()) {
                open_.pop_back();
                continue;
            }
            const Child child = open_.back().back();
            open_.back().pop_back();
            if (child.key.isText()) {
                bytes_ += kTextKey;
                text(child.key.text());
            } else {
                bytes_ += kIntegerKey;
                integer(child.key.number());
            }
            begin(*child.item);
        }
    }

    void list(const CKexDataItem& item)
    {
        /// A list whose count is not known yet.
        struct OpenList
        {
            std::size_t place; // of its tag
            std::uint32_t values = 0;
        };
        std::vector<OpenList> lists;
        const auto beginList = [&] {
            if (!lists.empty()) ++lists.back().values;
            lists.push_back({bytes_.size()});
            tag(kList);
            count(0);
        };
        const auto endList = [&](bool dotted) {
            const OpenList done = lists.back();
            lists.pop_back();
            if (dotted) bytes_[done.place] = static_cast<char>(kDottedList);
            for (std::size_t i = 0; i < sizeof done.values; ++i) {
                bytes_[done.place + 1 + i] = static_cast<char>(done.values >> (8 * i) & 0xFF);
            }
        };
        beginList();
        for (const CKexDataItem& value : item.listValues()) {
            switch (value.kind()) {
            case Kind::listBegin: beginList(); break;
            case Kind::listEnd: endList(false); break;
            case Kind::listEndDotted: endList(true); break;
            default: ++lists.back().values; atom(value);
            }
        }
        endList(item.kind() == Kind::dottedList);
    }

    void atom(const CKexDataItem& item)
    {
        int whole = 0;
        double value = 0.0;
        CKexPoint3d point;
        CAdsName name;
        if (item.get(whole)) {
            tag(kInteger);
            integer(whole);
        } else if (item.get(value)) {
            tag(kReal);
            real(value);
        } else if (item.get(point)) {
            const bool flat = item.kind() == Kind::point2d;
            tag(flat ? kPoint2d : kPoint3d);
            real(point.x);
            real(point.y);
            if (!flat) real(point.z);
        } else if (item.kind() == Kind::text) {
            tag(kText);
            text(item.text());
        } else if (item.get(name)) {
            tag(kHandle);
            text(handles_ != nullptr ? handles_->at(name) : entityHandle(name));
        } else {
            tag(item.kind() == Kind::t ? kT : kNil);
        }
    }

    const BinOptions& options_;
    const HandleTable* handles_; // null: of the current drawing
    std::string bytes_;
    std::vector<Children> open_;
};

class Reader
{
public:
    Reader(std::string_view bytes, HandleTable* handles) : rest_(bytes), handles_(handles) {}

    /// False when the bytes are not exactly one node.
    bool node(CKexDataItem& item) { return read(item) && drain() && rest_.empty(); }

private:
    struct OpenDirectory
    {
        CKexDataDir* dir;
        std::uint32_t left; // children still to come
    };

    template <class Number>
    bool number(Number& value)
    {
        if (rest_.size() < sizeof(Number)) return false;
        value = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            value = static_cast<Number>(
                value | static_cast<Number>(static_cast<unsigned char>(rest_[i])) << (8 * i));
        }
        rest_.remove_prefix(sizeof(Number));
        return true;
    }
    bool integer(int& value)
    {
        std::uint32_t bits = 0;
        if (!number(bits)) return false;
        value = static_cast<int>(bits);
        return true;
    }
    bool real(double& value)
    {
        std::uint64_t bits = 0;
        if (!number(bits)) return false;
        value = std::bit_cast<double>(bits);
        return true;
    }
    /// A count of things of at least so many bytes.
    bool count(std::uint32_t& value, std::size_t leastBytes)
    {
        return number(value) && value <= rest_.size() / leastBytes;
    }
    bool text(CKexString& value)
    {
        std::uint32_t size = 0;
        if (!count(size, 1)) return false;
        std::optional<CKexString> read = CKexString::fromUtf8Strict(rest_.substr(0, size));
        if (!read.has_value()) return false;
        value = std::move(*read);
        rest_.remove_prefix(size);
        return true;
    }

    /// Reads an item whole, but for the children of a directory, which then stands on the stack.
    bool read(CKexDataItem& item)
    {
        std::uint8_t tag = 0;
        if (!number(tag)) return false;
        if (tag == kDirectory) {
            std::uint32_t children = 0;
            constexpr std::size_t kLeastChild =
                1 + 4 + 1; // key's kind, its length or number, a node
            if (!count(children, kLeastChild)) return false;
            open_.push_back({&item.mkDir(), children});
            return true;
        }
        return tag == kList || tag == kDottedList ? list(tag, item) : atom(tag, item);
    }

    bool drain()
    {
        while (!open_.empty()) {
            if (open_.back().left == 0) {
                open_.pop_back();
                continue;
            }
            --open_.back().left;
            CKexDataItem* child = newChild(*open_.back().dir);
            if (child == nullptr || !read(*child)) return false;
        }
        return true;
    }

    /// Null when no key follows, or one that the directory has already.
    CKexDataItem* newChild(CKexDataDir& dir)
    {
        std::uint8_t kind = 0;
        CKexString name;
        int value = 0;
        if (!number(kind)) return nullptr;
        const bool isText = kind == static_cast<std::uint8_t>(kTextKey);
        if (!isText && kind != static_cast<std::uint8_t>(kIntegerKey)) return nullptr;
        if (isText ? !text(name) : !integer(value)) return nullptr;
        const int before = dir.length();
        CKexDataItem& child = dir.makeChild(isText ? DataKeyView(name) : DataKeyView(value));
        return dir.length() == before ? nullptr : &child;
    }

    bool list(std::uint8_t tag, CKexDataItem& item)
    {
        struct OpenList
        {
            std::uint32_t left; // values still to come
            bool dotted;
        };
        std::vector<OpenList> lists;
        ListBuilder builder;
        const auto beginList = [&](std::uint8_t listTag) {
            std::uint32_t values = 0;
            if (!count(values, 1) || (listTag == kDottedList && values < 2)) return false;
            lists.push_back({values, listTag == kDottedList});
            builder.begin();
            return true;
        };
        if (!beginList(tag)) return false;
        while (!lists.empty()) {
            if (lists.back().left == 0) {
                builder.end(lists.back().dotted);
                lists.pop_back();
                continue;
            }
            --lists.back().left;
            std::uint8_t next = 0;
            if (!number(next)) return false;
            if (next == kList || next == kDottedList) {
                if (!beginList(next)) return false;
                continue;
            }
            CKexDataItem value;
            if (!atom(next, value)) return false;
            builder.value(std::move(value));
        }
        item = builder.take();
        return true;
    }

    bool atom(std::uint8_t tag, CKexDataItem& item)
    {
        int whole = 0;
        CKexPoint3d point;
        CKexString words;
        switch (tag) {
        case kNil: item.clear(); return true;
        case kT: item = CKexDataItem(true); return true;
        case kInteger:
            if (!integer(whole)) return false;
            item = CKexDataItem(whole);
            return true;
        case kReal:
            if (!real(point.x)) return false;
            item = CKexDataItem(point.x);
            return true;
        case kText:
            if (!text(words)) return false;
            item = CKexDataItem(words);
            return true;
        case kPoint3d:
            if (!real(point.x) || !real(point.y) || !real(point.z)) return false;
            item = CKexDataItem(point);
            return true;
        case kPoint2d:
            if (!real(point.x) || !real(point.y)) return false;
            item = CKexDataItem::point2d(point.x, point.y);
            return true;
        case kHandle:
            if (!text(words)) return false;
            item = CKexDataItem(handles_ != nullptr ? handles_->add(words) : entityOfHandle(words));
            return true;
        default: return false;
        }
    }

    std::string_view rest_;
    HandleTable* handles_; // null: of the current drawing
    std::vector<OpenDirectory> open_;
};

std::uint32_t littleEndian(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i) {
        value = value << 8 | static_cast<unsigned char>(bytes[i - 1]);
    }
    return value;
}

} // namespace

std::string binEncode(const CKexDataItem& item, const BinOptions& options)
{
    Writer writer(options);
    writer.node(item);
    return std::move(writer).file();
}

std::string binEncode(const CKexDataDir& directory, const BinOptions& options)
{
    Writer writer(options);
    writer.directory(directory);
    return std::move(writer).file();
}

std::uint32_t binCheck(std::string_view bytes)
{
    KEX_ASSERT(bytes.size() >= kCheckSize, "a data file ends with its check");
    return littleEndian(bytes.substr(bytes.size() - kCheckSize));
}

BinReading binRead(std::string_view bytes, HandleTable* handles)
{
    BinReading reading;
    if (bytes.size() < kHeaderSize || !bytes.starts_with(kMagic)) {
        reading.problem = "it is no data file";
        return reading;
    }
    if (littleEndian(bytes.substr(4, 2)) != kVersion ||
        littleEndian(bytes.substr(6, 2)) != kFlags) {
        reading.problem = "it is of another version";
        return reading;
    }
    const std::uint32_t size = littleEndian(bytes.substr(8, 4));
    const std::string_view payload = bytes.substr(kHeaderSize, size);
    const std::size_t behind = bytes.size() - kHeaderSize - payload.size();
    if (behind < kCheckSize) reading.problem = "it is cut short";
    else if (behind > kCheckSize) reading.problem = "bytes follow behind its end";
    else if (binCheck(bytes) != crc32(payload)) reading.problem = "its check is wrong";
    const bool whole = Reader(payload, handles).node(reading.item);
    if (!whole && reading.problem == nullptr) reading.problem = "its content is damaged";
    return reading;
}

std::string binWrite(const CKexDataItem& item, const HandleTable& handles)
{
    const BinOptions options;
    Writer writer(options, &handles);
    writer.node(item);
    return std::move(writer).file();
}

std::optional<CKexDataItem> binDecode(std::string_view bytes)
{
    BinReading reading = binRead(bytes, nullptr);
    if (reading.problem != nullptr) return std::nullopt;
    return std::move(reading.item);
}

} // namespace KEX
