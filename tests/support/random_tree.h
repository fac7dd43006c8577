// SPDX-License-Identifier: LicenseRef-ORVALD
// Data trees of every shape for tests of laws.
#pragma once

#include "kex_values.h"

#include "kexdata/data_dir.h"

namespace kextest {

/// Which values a tree may have: all, those that a drawing keeps (texts without the unit 0), or
/// those that come through LISP text without a drawing.
enum class Values
{
    all,
    drawing,
    lisp
};

inline CKexDataItem randomAtom(Random& random, Values values)
{
    switch (random.below(8)) {
    case 0: return CKexDataItem();
    case 1: return CKexDataItem(true);
    case 2: return CKexDataItem(random.below(1 << 30) - (1 << 29));
    case 3: return CKexDataItem(random.from(-1e6, 1e6));
    case 4: return CKexDataItem(random.point(1e7));
    case 5: return CKexDataItem::point2d(random.from(-1, 1), 2.5);
    default: break;
    }
    CKexString text;
    for (int i = random.below(20); i > 0; --i) {
        text += values == Values::lisp      ? static_cast<ACHAR>('a' + random.below(26))
                : values == Values::drawing ? static_cast<ACHAR>(1 + random.below(0xFFFF))
                                            : random.unit();
    }
    return CKexDataItem(text);
}

inline CKexDataItem randomList(Random& random, Values values, int depth = 0)
{
    CKexDataItem::Values items;
    const int count = random.below(5);
    for (int i = 0; i < count; ++i) {
        const bool inner = depth < 4 && random.below(3) == 0;
        items.push_back(inner ? randomList(random, values, depth + 1) : randomAtom(random, values));
    }
    return CKexDataItem::list(std::move(items), count >= 2 && random.below(4) == 0);
}

inline CKexDataItem randomTree(Random& random, Values values, int depth = 0)
{
    const int kind = random.below(depth == 0 ? 2 : 5);
    if (depth > 4 || kind >= 3) return randomAtom(random, values);
    if (kind == 2) return randomList(random, values);
    CKexDataItem dir = CKexDataItem::directory();
    const int count = random.below(12) + (random.below(20) == 0 ? 60 : 0);
    for (int i = 0; i < count; ++i) {
        const int key = random.below(1000);
        const CKexString name = KEX::format(KT("K{}"), key);
        CKexDataItem& child =
            dir.mkDir().makeChild(key % 4 == 0 ? KEX::DataKeyView(key) : KEX::DataKeyView(name));
        child = randomTree(random, values, depth + 1);
    }
    return dir;
}

} // namespace kextest
