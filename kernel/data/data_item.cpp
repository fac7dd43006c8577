// SPDX-License-Identifier: LicenseRef-ORVALD
// Values of data items, and the tree operations that go by path.
#include "kexdata/data_item.h"

#include "kexdata/data_dir.h"
#include "kexdata/list_builder.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

using KEX::TextView;

/// A text with memory of its own; the units follow the head.
struct CKexDataItem::OwnText
{
    std::uint32_t units;

    ACHAR* text() { return reinterpret_cast<ACHAR*>(this + 1); }
    static OwnText* make(TextView from)
    {
        void* memory = ::operator new(sizeof(OwnText) + from.size() * sizeof(ACHAR));
        auto* own = new (memory) OwnText{static_cast<std::uint32_t>(from.size())};
        std::memcpy(own->text(), from.data(), from.size() * sizeof(ACHAR));
        return own;
    }
};

CKexDataItem::CKexDataItem(int value) : CKexDataItem(Kind::integer) { wide_.integer = value; }

CKexDataItem::CKexDataItem(double value) : CKexDataItem(Kind::real) { wide_.real = value; }

CKexDataItem::CKexDataItem(TextView value) : CKexDataItem(Kind::nil)
{
    if (value.size() <= kInlineUnits) {
        std::copy(value.begin(), value.end(), head_.inlineText);
        head_.units = static_cast<std::uint8_t>(value.size());
    } else {
        wide_.ownText = OwnText::make(value);
        wide_.units = kOwnMemory;
    }
    head_.kind = Kind::text;
}

CKexDataItem::CKexDataItem(const CKexPoint3d& value) : CKexDataItem(Kind::nil)
{
    wide_.point = new double[3]{value.x, value.y, value.z};
    wide_.kind = Kind::point3d;
}

CKexDataItem::CKexDataItem(const KEX::CAdsName& value) : CKexDataItem(Kind::nil)
{
    if (value.isNull()) return;
    wide_.name[0] = value.asName()[0];
    wide_.name[1] = value.asName()[1];
    wide_.kind = Kind::ename;
}

CKexDataItem CKexDataItem::point2d(double x, double y)
{
    CKexDataItem item;
    item.wide_.point = new double[2]{x, y};
    item.wide_.kind = Kind::point2d;
    return item;
}

CKexDataItem CKexDataItem::directory()
{
    CKexDataItem item;
    item.mkDir();
    return item;
}

CKexDataItem CKexDataItem::list(Values values, bool dotted)
{
    KEX::ListBuilder builder;
    builder.begin();
    for (CKexDataItem& value : values) builder.add(std::move(value));
    builder.end(dotted);
    return builder.take();
}

void CKexDataItem::copyShallow(const CKexDataItem& other)
{
    switch (other.kind()) {
    case Kind::text:
        if (other.head_.units == kOwnMemory) {
            wide_.ownText = OwnText::make(other.text());
            wide_.units = kOwnMemory;
            wide_.kind = Kind::text;
            return;
        }
        break;
    case Kind::point3d:
    case Kind::point2d: {
        const std::size_t count = other.kind() == Kind::point3d ? 3 : 2;
        wide_.point = new double[count];
        std::copy_n(other.wide_.point, count, wide_.point);
        wide_.kind = other.kind();
        return;
    }
    case Kind::list:
    case Kind::dottedList:
        wide_.values = new Values(*other.wide_.values);
        wide_.kind = other.kind();
        return;
    case Kind::directory: mkDir(); return;
    default: break;
    }
    copyBytes(other);
}

CKexDataItem::CKexDataItem(const CKexDataItem& other) : CKexDataItem()
{
    std::vector<std::pair<const CKexDataDir*, CKexDataDir*>> open;
    const auto copy = [&](const CKexDataItem& from, CKexDataItem& to) {
        to.copyShallow(from);
        if (from.isDir()) open.emplace_back(from.getDir(), to.getDir());
    };
    copy(other, *this);
    while (!open.empty()) {
        const auto [from, to] = open.back();
        open.pop_back();
        for (const auto child : *from) copy(child.item, to->makeChild(child.key));
    }
}

CKexDataItem::CKexDataItem(CKexDataItem&& other) noexcept : head_()
{
    copyBytes(other);
    other.head_ = Head();
}

CKexDataItem& CKexDataItem::operator=(CKexDataItem other) noexcept
{
    alignas(CKexDataItem) unsigned char bytes[sizeof(CKexDataItem)];
    std::memcpy(bytes, this, sizeof bytes);
    copyBytes(other);
    std::memcpy(static_cast<void*>(&other), bytes, sizeof bytes);
    return *this;
}

void CKexDataItem::clear() noexcept
{
    // The item is nil before its memory goes: a directory must never be seen while it is taken
    // down.
    const Wide old = std::exchange(wide_, Wide{Kind::nil, 0, {}});
    switch (old.kind) {
    case Kind::text:
        if (old.units == kOwnMemory) ::operator delete(old.ownText);
        break;
    case Kind::point3d:
    case Kind::point2d: delete[] old.point; break;
    case Kind::list:
    case Kind::dottedList: delete old.values; break;
    case Kind::directory: delete old.directory; break;
    default: break;
    }
}

bool CKexDataItem::get(int& value) const
{
    if (kind() != Kind::integer) return false;
    value = wide_.integer;
    return true;
}

bool CKexDataItem::get(double& value) const
{
    if (kind() != Kind::integer && kind() != Kind::real) return false;
    value = kind() == Kind::integer ? wide_.integer : wide_.real;
    return true;
}

bool CKexDataItem::get(CKexString& value) const
{
    if (kind() != Kind::text) return false;
    value = text();
    return true;
}

bool CKexDataItem::get(CKexPoint3d& value) const
{
    if (kind() != Kind::point3d && kind() != Kind::point2d) return false;
    const double* point = wide_.point;
    value = CKexPoint3d(point[0], point[1], kind() == Kind::point3d ? point[2] : 0.0);
    return true;
}

bool CKexDataItem::get(KEX::CAdsName& value) const
{
    if (kind() != Kind::ename) return false;
    value = KEX::CAdsName(wide_.name);
    return true;
}

TextView CKexDataItem::text() const
{
    if (kind() != Kind::text) return TextView();
    if (head_.units != kOwnMemory) return TextView(head_.inlineText, head_.units);
    return TextView(wide_.ownText->text(), wide_.ownText->units);
}

const CKexDataItem::Values& CKexDataItem::listValues() const
{
    static const Values kNoValues;
    return isList() ? *wide_.values : kNoValues;
}

CKexDataDir& CKexDataItem::mkDir()
{
    if (!isDir()) {
        auto* fresh = new CKexDataDir();
        clear();
        wide_.directory = fresh;
        wide_.kind = Kind::directory;
    }
    return *wide_.directory;
}

const CKexDataItem* CKexDataItem::find(const CKexDataKey& key) const
{
    if (key.isEmpty()) return this;
    return isDir() ? getDir()->get(key) : nullptr;
}

bool CKexDataItem::put(const CKexDataKey& key, CKexDataItem value)
{
    if (key.isEmpty()) {
        *this = std::move(value);
        return true;
    }
    if (!isDir() && !isNil()) return false;
    return mkDir().set(key, std::move(value));
}

bool CKexDataItem::remove(const CKexDataKey& key)
{
    if (!key.isEmpty()) return isDir() && getDir()->remove(key);
    const bool was = !isNil();
    clear();
    return was;
}

CKexArrayTempl<CKexDataKey> CKexDataItem::getKeyList() const
{
    return isDir() ? getDir()->keys() : CKexArrayTempl<CKexDataKey>();
}

CKexArrayTempl<CKexDataKey> CKexDataItem::getPathList() const
{
    struct Walk
    {
        CKexDataDir::ConstIterator at, end;
    };
    CKexArrayTempl<CKexDataKey> paths;
    std::vector<Walk> open;
    std::vector<KEX::DataKeyView> path; // a part for each open directory but the first
    if (const CKexDataDir* dir = getDir()) open.push_back({dir->begin(), dir->end()});
    while (!open.empty()) {
        Walk& walk = open.back();
        if (walk.at == walk.end) {
            open.pop_back();
            if (!path.empty()) path.pop_back();
            continue;
        }
        const auto child = *walk.at;
        ++walk.at;
        if (const CKexDataDir* below = child.item.getDir()) {
            path.push_back(child.key);
            open.push_back({below->begin(), below->end()});
            continue;
        }
        CKexDataKey key;
        for (const KEX::DataKeyView& part : path) key.append(part);
        key.append(child.key);
        paths.append(std::move(key));
    }
    return paths;
}

bool operator==(const CKexDataItem& a, const CKexDataItem& b)
{
    using Kind = CKexDataItem::Kind;
    std::vector<std::pair<const CKexDataItem*, const CKexDataItem*>> open{{&a, &b}};
    while (!open.empty()) {
        const auto [left, right] = open.back();
        open.pop_back();
        if (left->kind() != right->kind()) return false;
        switch (left->kind()) {
        case Kind::integer:
            if (left->wide_.integer != right->wide_.integer) return false;
            break;
        case Kind::real:
            if (left->wide_.real != right->wide_.real) return false;
            break;
        case Kind::text:
            if (left->text() != right->text()) return false;
            break;
        case Kind::point3d:
        case Kind::point2d: {
            const double* point = left->wide_.point;
            const std::size_t count = left->kind() == Kind::point3d ? 3 : 2;
            if (!std::equal(point, point + count, right->wide_.point)) return false;
            break;
        }
        case Kind::ename:
            if (!std::equal(left->wide_.name, left->wide_.name + 2, right->wide_.name))
                return false;
            break;
        case Kind::list:
        case Kind::dottedList: {
            const CKexDataItem::Values& values = left->listValues();
            if (values.size() != right->listValues().size()) return false;
            for (std::size_t i = 0; i < values.size(); ++i) {
                open.emplace_back(&values[i], &right->listValues()[i]);
            }
            break;
        }
        case Kind::directory:
            if (left->getDir()->length() != right->getDir()->length()) return false;
            for (const auto child : *left->getDir()) {
                const CKexDataItem* other = right->getDir()->child(child.key);
                if (other == nullptr) return false;
                open.emplace_back(&child.item, other);
            }
            break;
        default: break;
        }
    }
    return true;
}
