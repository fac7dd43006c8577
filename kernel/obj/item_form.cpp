// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items as groups of an xrecord, both ways. Open directories and lists stand on stacks of our
// own, so that items nest to any depth; every loop over groups takes one at least.
#include "kexobj/item_form.h"

#include "hostapi/database.h"
#include "kexdata/data_dir.h"
#include "kexdata/list_builder.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace KEX {
namespace {

using Kind = CKexDataItem::Kind;

constexpr const ACHAR* kHeader = KT("KEX_ITEM");
constexpr int kVersion = 1;

enum Group : short
{
    kTextEnd = 1,
    kKeyEnd = 2,
    kTextPiece = 3,
    kKeyPiece = 4,
    kPoint3d = 10,
    kPoint2d = 11,
    kReal = 40,
    kInteger = 90, // the version as well
    kIntegerKey = 91,
    kMark = 280,
    kHeaderText = 300,
    kEntity = 330
};

enum Mark : short
{
    kDirectory = 1,
    kDirectoryEnd,
    kList,
    kListEnd,
    kNil,
    kT,
    kTail
};

// ---- writing

constexpr int kMostPerUnit = 7; // "\U+XXXX"

/// Characters that the unit at the front of `rest` takes in a file.
int written(TextView rest)
{
    const ACHAR unit = rest.front();
    if (unit < 0x20 || unit == '^') return 2;
    const bool form = unit == '\\' && rest.size() > 2 && rest[2] == '+' &&
                      (rest[1] == 'U' || rest[1] == 'u' || rest[1] == 'M' || rest[1] == 'm');
    return unit > 0x7E || form ? kMostPerUnit : 1;
}

/// Units of the first piece of a text; all of them when it needs no cut.
std::size_t pieceLength(TextView text)
{
    if (text.size() * kMostPerUnit <= kMostWritten) return text.size();
    std::size_t units = 0;
    for (int length = 0; units < text.size(); ++units) {
        length += written(text.substr(units));
        if (length > kMostWritten) break;
    }
    const bool withinPair =
        units < text.size() && isLowSurrogate(text[units]) && isHighSurrogate(text[units - 1]);
    return withinPair ? units - 1 : units;
}

class Writer
{
public:
    CSmartResbuf groups(const CKexDataItem& item)
    {
        text(kHeaderText, kHeader);
        node(kInteger).rlong = kVersion;
        value(item);
        while (!open_.empty()) nextChild();
        return std::move(chain_);
    }

private:
    struct Walk
    {
        CKexDataDir::ConstIterator at, end;
    };

    ads_u_val& node(short code)
    {
        resbuf* fresh = acutNewRb(code);
        if (fresh == nullptr) throw std::bad_alloc();
        if (last_ == nullptr) chain_.reset(fresh);
        else last_->rbnext = fresh;
        last_ = fresh;
        return fresh->resval;
    }
    void mark(Mark value) { node(kMark).rint = value; }

    /// A text of at most kMostWritten units.
    void text(short code, TextView text)
    {
        ACHAR units[kMostWritten + 1]; // the host wants an end mark
        std::copy(text.begin(), text.end(), units);
        units[text.size()] = 0;
        if (acutNewString(units, node(code).rstring) != RTNORM) throw std::bad_alloc();
    }
    void pieces(short piece, short end, TextView text)
    {
        text = text.substr(0, text.find(ACHAR(0)));
        for (;;) {
            const std::size_t units = pieceLength(text);
            const bool last = units == text.size();
            this->text(last ? end : piece, text.substr(0, units));
            if (last) return;
            text.remove_prefix(units);
        }
    }

    /// Writes an item whole, but for the children of a directory, which then stands on the stack.
    void value(const CKexDataItem& item)
    {
        if (const CKexDataDir* dir = item.getDir()) {
            mark(kDirectory);
            open_.push_back({dir->begin(), dir->end()});
        } else if (item.isList()) {
            list(item);
        } else {
            atom(item);
        }
    }

    void nextChild()
    {
        Walk& walk = open_.back();
        if (walk.at == walk.end) {
            mark(kDirectoryEnd);
            open_.pop_back();
            return;
        }
        const auto child = *walk.at;
        ++walk.at;
        if (child.key.isText()) pieces(kKeyPiece, kKeyEnd, child.key.text());
        else node(kIntegerKey).rlong = child.key.number();
        value(child.item);
    }

    void list(const CKexDataItem& item)
    {
        mark(kList);
        const CKexDataItem::Values& values = item.listValues();
        for (std::size_t i = 0; i < values.size(); ++i) {
            // A tail is one value: lists, points and nil have joined the list that they ended.
            const Kind next = i + 1 < values.size() ? values[i + 1].kind() : Kind::nil;
            const bool last = i + 1 == values.size() && item.kind() == Kind::dottedList;
            if (next == Kind::listEndDotted || last) mark(kTail);
            switch (values[i].kind()) {
            case Kind::listBegin: mark(kList); break;
            case Kind::listEnd:
            case Kind::listEndDotted: mark(kListEnd); break;
            default: atom(values[i]);
            }
        }
        mark(kListEnd);
    }

    void atom(const CKexDataItem& item)
    {
        switch (item.kind()) {
        case Kind::t: mark(kT); return;
        case Kind::integer: {
            int number = 0;
            item.get(number);
            node(kInteger).rlong = number;
            return;
        }
        case Kind::real: {
            double number = 0.0;
            item.get(number);
            if (!std::isfinite(number)) break;
            node(kReal).rreal = number;
            return;
        }
        case Kind::text: pieces(kTextPiece, kTextEnd, item.text()); return;
        case Kind::point3d:
        case Kind::point2d: {
            CKexPoint3d point;
            item.get(point);
            const double* xyz = point.asArray();
            if (!std::all_of(xyz, xyz + 3, [](double c) { return std::isfinite(c); })) break;
            std::copy_n(xyz, 3, node(item.kind() == Kind::point3d ? kPoint3d : kPoint2d).rpoint);
            return;
        }
        case Kind::ename: {
            CAdsName name;
            AcDbObjectId id;
            item.get(name);
            if (acdbGetObjectId(id, name.asName()) != Acad::eOk) break;
            acdbGetAdsName(node(kEntity).rlname, id);
            return;
        }
        default: break;
        }
        mark(kNil);
    }

    CSmartResbuf chain_;
    resbuf* last_ = nullptr;
    std::vector<Walk> open_;
};

// ---- reading

TextView textOf(const resbuf& node) { return TextView(node.resval.rstring); }

/// The first node behind the head; null when the head is not that of an item of this version, or
/// nothing follows.
const resbuf* behindHead(const resbuf* groups)
{
    return itemForm(groups) == ItemForm::item && groups->rbnext != nullptr &&
                   groups->rbnext->restype == kInteger && groups->rbnext->resval.rlong == kVersion
               ? groups->rbnext->rbnext
               : nullptr;
}

class Reader
{
public:
    explicit Reader(const resbuf* first) : at_(first) {}
    bool atEnd() const { return at_ == nullptr; }

    /// Reads one value; false when it is damaged.
    bool value(CKexDataItem& item)
    {
        if (!begin(item)) return false;
        while (!open_.empty()) {
            if (takeMark(kDirectoryEnd)) {
                open_.pop_back();
                continue;
            }
            CKexDataItem* child = newChild(*open_.back());
            if (child == nullptr || !begin(*child)) return false;
        }
        return true;
    }

    /// Goes to the value of a child of the directory that begins here; false when it is absent or
    /// no directory begins.
    bool enter(const DataKeyView& wanted)
    {
        if (!takeMark(kDirectory)) return false;
        while (at_ != nullptr && !takeMark(kDirectoryEnd)) {
            if (!readKey()) return false;
            if (key() == wanted) return true;
            skipValue();
        }
        return false;
    }

private:
    bool isMark(Mark mark) const
    {
        return at_ != nullptr && at_->restype == kMark && at_->resval.rint == mark;
    }
    bool takeMark(Mark mark)
    {
        const bool there = isMark(mark);
        if (there) at_ = at_->rbnext;
        return there;
    }

    /// Passes over a value without a look at its inside.
    void skipValue()
    {
        int depth = 0;
        bool ended = false;
        for (; at_ != nullptr && !ended; at_ = at_->rbnext) {
            if (isMark(kDirectory) || isMark(kList)) ++depth;
            else if (isMark(kDirectoryEnd) || isMark(kListEnd)) --depth;
            ended = depth <= 0 && at_->restype != kTextPiece;
        }
    }

    /// Reads the pieces of a text; `text` is good as long as the chain and this reader's next text.
    bool readText(short piece, short end, TextView& text)
    {
        if (at_->restype != piece) {
            if (at_->restype != end) return false;
            text = textOf(*at_);
            at_ = at_->rbnext;
            return true;
        }
        joined_.clear();
        for (; at_ != nullptr && at_->restype == piece; at_ = at_->rbnext)
            joined_.append(textOf(*at_));
        if (at_ == nullptr || at_->restype != end) return false;
        joined_.append(textOf(*at_));
        text = TextView(joined_.data(), joined_.size());
        at_ = at_->rbnext;
        return true;
    }

    bool readKey()
    {
        if (at_ == nullptr) return false;
        keyIsText_ = at_->restype != kIntegerKey;
        if (keyIsText_) return readText(kKeyPiece, kKeyEnd, keyText_);
        keyNumber_ = at_->resval.rlong;
        at_ = at_->rbnext;
        return true;
    }
    DataKeyView key() const { return keyIsText_ ? DataKeyView(keyText_) : DataKeyView(keyNumber_); }

    /// Null when no key follows, or one that the directory has already.
    CKexDataItem* newChild(CKexDataDir& dir)
    {
        if (!readKey()) return nullptr;
        const int before = dir.length();
        CKexDataItem& child = dir.makeChild(key());
        return dir.length() == before ? nullptr : &child;
    }

    /// Reads an item whole, but for the children of a directory, which then stands on the stack.
    bool begin(CKexDataItem& item)
    {
        if (takeMark(kDirectory)) {
            open_.push_back(&item.mkDir());
            return true;
        }
        return takeMark(kList) ? list(item) : atom(item);
    }

    /// Reads a list behind its first mark.
    bool list(CKexDataItem& item)
    {
        using Problem = ListReader::Problem;
        ListReader reader;
        Problem problem = reader.begin();
        while (problem == Problem::none && reader.isOpen()) {
            if (takeMark(kListEnd)) {
                problem = reader.end();
            } else if (takeMark(kTail)) {
                problem = reader.dot();
            } else if (takeMark(kList)) {
                problem = reader.begin();
            } else {
                CKexDataItem value;
                if (!atom(value)) return false;
                problem = reader.value(std::move(value));
            }
        }
        if (problem == Problem::none) item = reader.take();
        return problem == Problem::none;
    }

    bool atom(CKexDataItem& item)
    {
        if (at_ == nullptr) return false;
        const ads_u_val& value = at_->resval;
        switch (at_->restype) {
        case kTextPiece:
        case kTextEnd: {
            TextView text;
            if (!readText(kTextPiece, kTextEnd, text)) return false;
            item = CKexDataItem(text);
            return true;
        }
        case kInteger: item = CKexDataItem(static_cast<int>(value.rlong)); break;
        case kReal: item = CKexDataItem(value.rreal); break;
        case kPoint3d: item = CKexDataItem(CKexPoint3d(value.rpoint)); break;
        case kPoint2d: item = CKexDataItem::point2d(value.rpoint[0], value.rpoint[1]); break;
        case kEntity: {
            AcDbObjectId id;
            CAdsName name;
            // A reference to what has been lost reads as nil.
            if (acdbGetObjectId(id, value.rlname) == Acad::eOk) acdbGetAdsName(name.asName(), id);
            item = CKexDataItem(name);
            break;
        }
        case kMark:
            if (value.rint != kNil && value.rint != kT) return false;
            item = value.rint == kT ? CKexDataItem(true) : CKexDataItem();
            break;
        default: return false;
        }
        at_ = at_->rbnext;
        return true;
    }

    const resbuf* at_;
    std::vector<CKexDataDir*> open_;
    std::basic_string<ACHAR> joined_; // the last text that came in pieces
    TextView keyText_;
    int keyNumber_ = 0;
    bool keyIsText_ = false;
};

} // namespace

CSmartResbuf itemToGroups(const CKexDataItem& item) { return Writer().groups(item); }

ItemForm itemForm(const resbuf* groups)
{
    if (groups == nullptr) return ItemForm::none;
    if (groups->restype != kHeaderText || textOf(*groups) != kHeader) return ItemForm::foreign;
    const resbuf* version = groups->rbnext;
    return version != nullptr && version->restype == kInteger && version->resval.rlong > kVersion
               ? ItemForm::later
               : ItemForm::item;
}

std::unique_ptr<CKexDataItem> itemFromGroups(const resbuf* groups, const CKexDataKey& key)
{
    Reader reader(behindHead(groups));
    for (const DataKeyPart& part : key) {
        if (!reader.enter(part)) return nullptr;
    }
    auto item = std::make_unique<CKexDataItem>();
    if (!reader.value(*item)) return nullptr;
    return key.isEmpty() && !reader.atEnd() ? nullptr : std::move(item);
}

} // namespace KEX
