// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items as LISP values, both ways.
#include "kexdata/data_dir.h"

#include "data_access.h"
#include "kex/rb_tokens.h"
#include "kexdata/list_builder.h"

using KEX::DataKeyView;
using KEX::RbBuilder;
using KEX::RbTokens;
using Kind = CKexDataItem::Kind;

namespace {

// ---- to LISP

/// An item that is neither list nor directory, or a mark of a list.
void putAtom(RbBuilder& to, const CKexDataItem& item)
{
    switch (item.kind()) {
    case Kind::t: to.t(); return;
    case Kind::integer: {
        int value = 0;
        item.get(value);
        to.integer(value);
        return;
    }
    case Kind::real: {
        double value = 0.0;
        item.get(value);
        to.real(value);
        return;
    }
    case Kind::text: to.text(item.text()); return;
    case Kind::point3d:
    case Kind::point2d: {
        CKexPoint3d value;
        item.get(value);
        if (item.kind() == Kind::point3d) to.point(value);
        else to.point2d(value.x, value.y);
        return;
    }
    case Kind::ename: {
        KEX::CAdsName value;
        item.get(value);
        to.name(value);
        return;
    }
    case Kind::listBegin: to.begin(); return;
    case Kind::listEnd: to.end(); return;
    case Kind::listEndDotted: to.endDotted(); return;
    default: to.nil(); return;
    }
}

void putListEnd(RbBuilder& to, bool dotted)
{
    if (dotted) to.endDotted();
    else to.end();
}

/// The values of a list, and its end.
void putListTail(RbBuilder& to, const CKexDataItem& list)
{
    for (const CKexDataItem& value : list.listValues()) putAtom(to, value);
    putListEnd(to, list.kind() == Kind::dottedList);
}

/// What stands behind a child's key, the end of the child's list included; not for directories.
void putChildTail(RbBuilder& to, const CKexDataItem& item)
{
    switch (item.kind()) {
    case Kind::nil: to.end(); return;
    case Kind::list:
    case Kind::dottedList: putListTail(to, item); return;
    case Kind::point3d:
    case Kind::point2d: {
        // The pair of a key and a point is a list, the point's reals among its elements.
        CKexPoint3d value;
        item.get(value);
        to.real(value.x).real(value.y);
        if (item.kind() == Kind::point3d) to.real(value.z);
        to.end();
        return;
    }
    default:
        putAtom(to, item);
        to.endDotted();
        return;
    }
}

void putChildren(RbBuilder& to, const CKexDataDir& dir)
{
    struct Walk
    {
        CKexDataDir::ConstIterator at, end;
    };
    std::vector<Walk> open{{dir.begin(), dir.end()}};
    while (!open.empty()) {
        Walk& walk = open.back();
        if (walk.at == walk.end) {
            open.pop_back();
            if (!open.empty()) to.end();
            continue;
        }
        const auto child = *walk.at;
        ++walk.at;
        to.begin();
        if (child.key.isText()) to.text(child.key.text());
        else to.integer(child.key.number());
        if (const CKexDataDir* below = child.item.getDir())
            open.push_back({below->begin(), below->end()});
        else putChildTail(to, child.item);
    }
}

/// The finished chain with its entity references made current.
KEX::CSmartResbuf validated(RbBuilder& builder)
{
    KEX::CSmartResbuf chain = builder.take();
    const KEX::RbValidate validate = CKexDataDir::rbValidate();
    if (validate != nullptr && chain.get() != nullptr) validate(chain);
    return chain;
}

// ---- from LISP

/// The item of one node; false when data cannot hold it.
bool atomOf(const resbuf& node, CKexDataItem& item)
{
    const ads_u_val& value = node.resval;
    switch (node.restype) {
    case RTNIL:
    case RTVOID: item = CKexDataItem(); return true;
    case RTT: item = CKexDataItem(true); return true;
    case RTSHORT: item = CKexDataItem(static_cast<int>(value.rint)); return true;
    case RTLONG: item = CKexDataItem(static_cast<int>(value.rlong)); return true;
    case RTREAL:
    case RTANG:
    case RTORINT: item = CKexDataItem(value.rreal); return true;
    case RTSTR: item = CKexDataItem(value.rstring); return true;
    case RT3DPOINT: item = CKexDataItem(CKexPoint3d(value.rpoint)); return true;
    case RTPOINT: item = CKexDataItem::point2d(value.rpoint[0], value.rpoint[1]); return true;
    case RTENAME: item = CKexDataItem(KEX::CAdsName(value.rlname)); return true;
    default: return false;
    }
}

/// Reads the list that begins at the first token; false when it holds what data cannot hold.
bool readList(RbTokens& tokens, CKexDataItem& item)
{
    KEX::ListBuilder builder;
    do {
        switch (tokens.token()) {
        case RbTokens::Token::begin: builder.begin(); break;
        case RbTokens::Token::end: builder.end(false); break;
        case RbTokens::Token::endDotted: builder.end(true); break;
        case RbTokens::Token::value: {
            CKexDataItem value;
            if (!atomOf(*tokens.node(), value)) return false;
            builder.value(std::move(value));
            break;
        }
        case RbTokens::Token::none: return false;
        }
        tokens.next();
    } while (builder.isOpen());
    item = builder.take();
    return true;
}

/// Makes directories of a list's values where the rule for directories holds. The values stay where
/// they are until they are moved into their item, so that the depth of a tree costs nothing.
class DirectoryFinder
{
public:
    explicit DirectoryFinder(CKexDataItem::Values values)
        : values_(std::move(values)), ends_(values_.size())
    {
        std::vector<std::size_t> open;
        for (std::size_t i = 0; i < values_.size(); ++i) {
            if (values_[i].kind() == Kind::listBegin) open.push_back(i);
            if (isEnd(values_[i])) {
                ends_[open.back()] = i;
                open.pop_back();
            }
        }
    }

    void fill(CKexDataItem& item, bool dotted)
    {
        open_.push_back({&item, 0, values_.size(), dotted});
        while (!open_.empty()) {
            const Range range = open_.back();
            open_.pop_back();
            if (!fillDirectory(range)) fillList(range);
        }
    }

private:
    /// The values of one list, and where its item belongs.
    struct Range
    {
        CKexDataItem* item;
        std::size_t begin, end;
        bool dotted;
    };

    static bool isEnd(const CKexDataItem& item)
    {
        return item.kind() == Kind::listEnd || item.kind() == Kind::listEndDotted;
    }
    bool isDotted(std::size_t end) const { return values_[end].kind() == Kind::listEndDotted; }
    /// The first value of the element at `start`, if it may be a key.
    bool isKeyed(std::size_t start) const
    {
        if (values_[start].kind() != Kind::listBegin) return false;
        const Kind first = values_[start + 1].kind();
        return first == Kind::text || first == Kind::integer;
    }
    DataKeyView keyAt(std::size_t place) const
    {
        int number = 0;
        if (values_[place].get(number)) return DataKeyView(number);
        return DataKeyView(values_[place].text());
    }

    bool mayBeDirectory(const Range& range) const
    {
        bool telling = false; // a text as key, or a dotted pair
        for (std::size_t at = range.begin; at < range.end; at = ends_[at] + 1) {
            if (!isKeyed(at)) return false;
            telling |= values_[at + 1].kind() == Kind::text || isDotted(ends_[at]);
        }
        return telling && !range.dotted;
    }

    bool fillDirectory(const Range& range)
    {
        if (!mayBeDirectory(range)) return false;
        CKexDataItem found = CKexDataItem::directory();
        CKexDataDir& dir = *found.getDir();
        int elements = 0;
        for (std::size_t at = range.begin; at < range.end; at = ends_[at] + 1) {
            dir.makeChild(keyAt(at + 1));
            if (dir.length() != ++elements) return false; // a key occurs twice
        }
        for (std::size_t at = range.begin; at < range.end; at = ends_[at] + 1) {
            const std::size_t end = ends_[at];
            CKexDataItem& child = dir.makeChild(keyAt(at + 1));
            if (isDotted(end) && end == at + 3) child = std::move(values_[at + 2]);
            else if (end != at + 2) open_.push_back({&child, at + 2, end, isDotted(end)});
        }
        *range.item = std::move(found);
        return true;
    }

    void fillList(const Range& range)
    {
        KEX::ListBuilder builder;
        builder.begin();
        for (std::size_t i = range.begin; i < range.end; ++i) builder.add(std::move(values_[i]));
        builder.end(range.dotted);
        *range.item = builder.take();
    }

    CKexDataItem::Values values_;
    std::vector<std::size_t> ends_; // for each beginning of a list its end
    std::vector<Range> open_;
};

} // namespace

KEX::CSmartResbuf CKexDataDir::mkLisp() const
{
    RbBuilder to;
    putChildren(to, *this);
    return validated(to);
}

KEX::CSmartResbuf CKexDataItem::mkLisp() const
{
    if (isNil()) return KEX::CSmartResbuf();
    if (isDir()) return KEX::rbToList(getDir()->mkLisp());
    RbBuilder to;
    if (isList()) {
        to.begin();
        putListTail(to, *this);
    } else {
        putAtom(to, *this);
    }
    return validated(to);
}

std::unique_ptr<CKexDataItem> CKexDataItem::fromRb(const resbuf*& rb)
{
    if (rb == nullptr) return nullptr;
    auto item = std::make_unique<CKexDataItem>();
    if (rb->restype != RTLB) {
        if (!atomOf(*rb, *item)) return nullptr;
        rb = rb->rbnext;
        return item;
    }
    RbTokens tokens(rb);
    if (!readList(tokens, *item)) return nullptr;
    rb = tokens.node();
    if (item->isList()) {
        const bool dotted = item->kind() == Kind::dottedList;
        DirectoryFinder(std::move(*item->wide_.values)).fill(*item, dotted);
    }
    return item;
}
