// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexDataItem: the kernel's data tree. An item is nil, T, an integer, a real, a text, a point, an
// entity name, a list, or a directory of further items by key.
//
// Lists hold values and lists, never directories. A list of exactly two or three reals is a point,
// the empty list is nil, and (a . (b c)) is (a b c), as in LISP. Items nest to any depth: nothing
// here recurses. LISP thread only.
#pragma once

#include "kexdata/data_key.h"

#include <concepts>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

class CKexDataDir;

namespace KEX {
class CBinFile;
class DataAccess;
struct BinOptions;
} // namespace KEX

class KEX_DATA_API CKexDataItem
{
public:
    enum class Kind : std::uint8_t
    {
        nil,
        t,
        integer,
        real,
        text,
        point3d,
        point2d,
        ename,
        list,       // proper
        dottedList, // its last value is the tail
        directory,
        // Only inside the values of a list, around those of an inner one.
        listBegin,
        listEnd,
        listEndDotted
    };
    /// Values of a list in a row; an inner list has its marks around it.
    using Values = std::vector<CKexDataItem>;

    CKexDataItem() noexcept : head_() {}
    /// Only for bool itself: a pointer must not become T.
    template <std::same_as<bool> Bool>
    explicit CKexDataItem(Bool value) : CKexDataItem(value ? Kind::t : Kind::nil)
    {
    }
    explicit CKexDataItem(int value);
    explicit CKexDataItem(double value);
    explicit CKexDataItem(KEX::TextView value);
    explicit CKexDataItem(const ACHAR* value) : CKexDataItem(KEX::TextView(value)) {}
    explicit CKexDataItem(const CKexString& value) : CKexDataItem(value.view()) {}
    explicit CKexDataItem(const CKexPoint3d& value);
    /// nil for the null name.
    explicit CKexDataItem(const KEX::CAdsName& value);
    static CKexDataItem point2d(double x, double y);
    static CKexDataItem directory();
    /// A list of values, lists among them; a directory is a broken promise. `dotted`: the last
    /// value is the tail, and not the only one. The list is brought to the form that the file
    /// comment states.
    static CKexDataItem list(Values values, bool dotted = false);

    CKexDataItem(const CKexDataItem& other);
    CKexDataItem(CKexDataItem&& other) noexcept;
    CKexDataItem& operator=(CKexDataItem other) noexcept;
    ~CKexDataItem()
    {
        if (ownsMemory()) clear();
    }

    Kind kind() const { return head_.kind; }
    bool isNil() const { return kind() == Kind::nil; }
    bool isDir() const { return kind() == Kind::directory; }
    bool isList() const { return kind() == Kind::list || kind() == Kind::dottedList; }
    /// One value that is neither list nor directory; nil is one.
    bool isAtom() const { return !isList() && !isDir(); }
    /// Becomes nil.
    void clear() noexcept;

    // Values; each gives false, and leaves the argument alone, when the item is of another kind.
    bool get(int& value) const;
    /// Integers count as reals.
    bool get(double& value) const;
    bool get(CKexString& value) const;
    /// A point of two coordinates gets Z 0.0.
    bool get(CKexPoint3d& value) const;
    bool get(KEX::CAdsName& value) const;
    /// "" when the item is no text; good until the item changes.
    KEX::TextView text() const;
    /// Values of a list, none for anything else.
    const Values& listValues() const;

    /// Null when the item is no directory.
    CKexDataDir* getDir() { return isDir() ? wide_.directory : nullptr; }
    const CKexDataDir* getDir() const { return isDir() ? wide_.directory : nullptr; }
    /// Makes a directory of it, an empty one unless it is one already.
    CKexDataDir& mkDir();

    /// The item at a path, null when it is absent; the empty key is the item itself. The pointer
    /// holds until a child of that child's directory is removed.
    const CKexDataItem* find(const CKexDataKey& key) const;
    CKexDataItem* find(const CKexDataKey& key)
    {
        return const_cast<CKexDataItem*>(std::as_const(*this).find(key));
    }
    /// The value at a path; false when it is absent or of another kind.
    template <class Value>
    bool get(Value& value, const CKexDataKey& key) const
    {
        const CKexDataItem* item = find(key);
        return item != nullptr && item->get(value);
    }
    /// Puts a value at a path and makes the directories on the way, this item included when it is
    /// nil. The empty key replaces the item itself. False, and no change, when a value stands on
    /// the way.
    bool put(const CKexDataKey& key, CKexDataItem value);
    /// Removes what stands at a path; false when nothing does. The empty key clears the item.
    bool remove(const CKexDataKey& key);
    /// Keys of the directory in stored order, none for anything else.
    CKexArrayTempl<CKexDataKey> getKeyList() const;
    /// Paths of all values below a directory, in stored order.
    CKexArrayTempl<CKexDataKey> getPathList() const;

    /// Reads one LISP value and moves `rb` behind it. A list is a directory when every element is a
    /// list that begins with a text or an integer, no key occurs twice, and one key is a text or
    /// one element is a dotted pair. Null, and `rb` unchanged, at the end of the chain and for what
    /// cannot be stored: selection sets, group codes, unbalanced chains.
    static std::unique_ptr<CKexDataItem> fromRb(const resbuf*& rb);
    /// The value as LISP knows it: one node, or a list with its brackets; null for nil. Entity
    /// names pass through the validation of directories.
    KEX::CSmartResbuf mkLisp() const;

    /// Writes the item in binary form; false when the file is not open for writing.
    bool write(KEX::CBinFile& file, const KEX::BinOptions& options) const;
    /// Reads what write wrote. False, and no change, when anything of it is not as written.
    bool read(KEX::CBinFile& file);

    /// Equal values; directories with equal children in any order; reals to the last bit but for
    /// the sign of 0. An integer never equals a real.
    friend KEX_DATA_API bool operator==(const CKexDataItem& a, const CKexDataItem& b);

private:
    friend class CKexDataDir;
    friend class KEX::DataAccess;

    /// Texts up to this length need no memory of their own.
    static constexpr std::size_t kInlineUnits = 7;
    static constexpr std::uint8_t kOwnMemory = 0xFF;
    struct OwnText;

    explicit CKexDataItem(Kind kind) noexcept : head_() { head_.kind = kind; }
    bool ownsMemory() const
    {
        return kind() == Kind::text ? head_.units == kOwnMemory : isWide(kind());
    }
    static bool isWide(Kind kind)
    {
        return kind == Kind::point3d || kind == Kind::point2d || kind == Kind::list ||
               kind == Kind::dottedList || kind == Kind::directory;
    }
    void copyShallow(const CKexDataItem& other);
    /// Takes all 16 bytes over. A copy of the structures below could leave out what is padding in
    /// one of them and text in the other.
    void copyBytes(const CKexDataItem& other) noexcept
    {
        std::memcpy(static_cast<void*>(this), &other, sizeof *this);
    }

    // 16 bytes: kind, and either a short text or one word.
    struct Head
    {
        Kind kind;
        std::uint8_t units; // of an inline text, else kOwnMemory for a text
        ACHAR inlineText[kInlineUnits];
    };
    struct Wide
    {
        Kind kind;
        std::uint8_t units;
        union {
            std::int32_t integer;
            double real;
            std::int32_t name[2];
            OwnText* ownText;
            double* point;
            Values* values;
            CKexDataDir* directory;
        };
    };
    union {
        Head head_;
        Wide wide_;
    };
};
static_assert(sizeof(void*) != 8 || sizeof(CKexDataItem) == 16, "a million of them shall be cheap");
