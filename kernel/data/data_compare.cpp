// SPDX-License-Identifier: LicenseRef-ORVALD
// Pairs of items that are still to be compared stand on a stack, so that depth costs nothing.
#include "kexdata/data_compare.h"

#include "kexdata/bin_file.h"
#include "kexdata/data_dir.h"

#include <cmath>

namespace KEX {
namespace {

using Kind = CKexDataItem::Kind;

/// A value or mark of a list; a point is a list of reals.
struct ListPart
{
    Kind kind;
    double number = 0.0;                 // of an integer or a real
    const CKexDataItem* value = nullptr; // of all else but marks
};

/// Not for lists.
void appendPart(std::vector<ListPart>& parts, const CKexDataItem& item)
{
    CKexPoint3d point;
    double number = 0.0;
    if (item.get(point)) {
        const int coordinates = item.kind() == Kind::point3d ? 3 : 2;
        parts.push_back({Kind::listBegin});
        for (int i = 0; i < coordinates; ++i) parts.push_back({Kind::real, point.asArray()[i]});
        parts.push_back({Kind::listEnd});
    } else if (item.get(number)) {
        parts.push_back({item.kind(), number});
    } else {
        parts.push_back({item.kind(), 0.0, &item});
    }
}

std::vector<ListPart> partsOf(const CKexDataItem& item)
{
    std::vector<ListPart> parts;
    if (!item.isList()) {
        appendPart(parts, item);
        return parts;
    }
    const bool dotted = item.kind() == Kind::dottedList;
    parts.push_back({Kind::listBegin});
    for (const CKexDataItem& value : item.listValues()) appendPart(parts, value);
    parts.push_back({dotted ? Kind::listEndDotted : Kind::listEnd});
    return parts;
}

bool isNumber(Kind kind) { return kind == Kind::integer || kind == Kind::real; }

bool equalParts(const ListPart& a, const ListPart& b, double tol)
{
    if (isNumber(a.kind) && isNumber(b.kind)) {
        const bool whole = a.kind == Kind::integer && b.kind == Kind::integer;
        return a.number == b.number || (!whole && std::abs(a.number - b.number) <= tol);
    }
    if (a.kind != b.kind) return false;
    return a.value == nullptr || *a.value == *b.value;
}

bool equalValues(const CKexDataItem& a, const CKexDataItem& b, double tol)
{
    const std::vector<ListPart> left = partsOf(a), right = partsOf(b);
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!equalParts(left[i], right[i], tol)) return false;
    }
    return true;
}

/// Two items of a pair, and what is ignored below them: T where a key of the list ends.
struct Pair
{
    const CKexDataItem* a;
    const CKexDataItem* b;
    const CKexDataItem* ignored; // null: nothing
};

const CKexDataItem* ignoredAt(const CKexDataItem* ignored, const DataKeyView& key)
{
    return ignored == nullptr || !ignored->isDir() ? nullptr : ignored->getDir()->child(key);
}

bool isIgnored(const CKexDataItem* ignored)
{
    return ignored != nullptr && ignored->kind() == Kind::t;
}

/// Children that count.
int countOf(const CKexDataItem& item, const CKexDataItem* ignored)
{
    if (!item.isDir()) return 0; // nil
    int count = 0;
    for (const auto child : *item.getDir()) {
        if (!isIgnored(ignoredAt(ignored, child.key))) ++count;
    }
    return count;
}

} // namespace

bool dataEqual(const CKexDataItem& a, const CKexDataItem& b, double tol,
               const CKexArrayTempl<CKexDataKey>& ignored)
{
    CKexDataItem allIgnored;
    // A path through one that is ignored already is left out.
    for (const CKexDataKey& key : ignored) allIgnored.put(key, CKexDataItem(true));
    std::vector<Pair> open{{&a, &b, &allIgnored}};
    while (!open.empty()) {
        const Pair pair = open.back();
        open.pop_back();
        if (isIgnored(pair.ignored)) continue;
        const CKexDataDir* left = pair.a->getDir();
        const CKexDataDir* right = pair.b->getDir();
        if (left == nullptr && right == nullptr) {
            if (!equalValues(*pair.a, *pair.b, tol)) return false;
            continue;
        }
        const bool comparable =
            (left != nullptr || pair.a->isNil()) && (right != nullptr || pair.b->isNil());
        if (!comparable || countOf(*pair.a, pair.ignored) != countOf(*pair.b, pair.ignored)) {
            return false;
        }
        if (left == nullptr || right == nullptr) continue;
        for (const auto child : *left) {
            const CKexDataItem* below = ignoredAt(pair.ignored, child.key);
            if (isIgnored(below)) continue;
            const CKexDataItem* other = right->child(child.key);
            if (other == nullptr) return false;
            open.push_back({&child.item, other, below});
        }
    }
    return true;
}

std::uint32_t dataCrc(const CKexDataItem& item)
{
    BinOptions options;
    options.sorted = true;
    return binCheck(binEncode(item, options));
}

} // namespace KEX
