// SPDX-License-Identifier: LicenseRef-ORVALD
// The form of data items in xrecords: every item comes back, in memory and through a file, and no
// chain of groups does harm.
#include "drawing_support.h"
#include "random_tree.h"

#include "kexdata/list_builder.h"
#include "kexobj/item_form.h"

#include <cmath>
#include <limits>
#include <variant>

namespace {

using KEX::itemForm;
using KEX::ItemForm;
using KEX::itemFromGroups;
using KEX::itemToGroups;
using kextest::Random;

class ItemFormTest : public kextest::DrawingTest
{
protected:
    /// Through the groups of an xrecord of the drawing.
    static std::unique_ptr<CKexDataItem> storedAndRead(AcDbObjectId holder,
                                                       const CKexDataItem& item)
    {
        EXPECT_TRUE(set(holder, &item));
        return KEX::xrGet(holder);
    }
};

/// Keys of every child below an item.
void collectKeys(const CKexDataItem& item, const CKexDataKey& at, std::vector<CKexDataKey>& keys)
{
    keys.push_back(at);
    if (!item.isDir()) return;
    for (const auto child : *item.getDir()) {
        CKexDataKey key = at;
        key.append(child.key);
        collectKeys(child.item, key, keys);
    }
}

TEST_F(ItemFormTest, EveryTreeComesBackWholeAndAtEveryKey)
{
    Random random(11);
    const AcDbObjectId holder = line();
    for (int i = 0; i < 200; ++i) {
        const CKexDataItem item = kextest::randomTree(random, kextest::Values::drawing);
        const auto back = storedAndRead(holder, item);
        ASSERT_TRUE(back != nullptr && *back == item) << "tree " << i;
        std::vector<CKexDataKey> keys;
        collectKeys(item, {}, keys);
        const KEX::CSmartResbuf groups = itemToGroups(item);
        for (int k = 0; k < 20; ++k) {
            const CKexDataKey& key =
                keys[static_cast<std::size_t>(random.below(static_cast<int>(keys.size())))];
            const auto child = itemFromGroups(groups, key);
            ASSERT_TRUE(child != nullptr && *child == *item.find(key)) << "tree " << i;
        }
        EXPECT_EQ(itemFromGroups(groups, KT("ABSENT")), nullptr);
    }
}

TEST_F(ItemFormTest, ListsKeepTheirShape)
{
    using List = CKexDataItem::Values;
    const auto list = [](List values, bool dotted = false) {
        return CKexDataItem::list(std::move(values), dotted);
    };
    const CKexDataItem one(1), text(KT("x"));
    const CKexDataItem cases[] = {
        list({one, text}, true),
        list({list({one, text}, true), list({}), list({one})}),
        list({list({list({one, one}, true), text}, true), CKexDataItem(2.5)}, true),
        list({CKexDataItem(1.0), CKexDataItem(2.0), CKexDataItem(3.0), CKexDataItem(4.0)}),
        list({CKexDataItem(CKexPoint3d(1, 2, 3)), CKexDataItem::point2d(4, 5), CKexDataItem(true)}),
    };
    const AcDbObjectId holder = line();
    for (const CKexDataItem& item : cases) {
        const auto back = storedAndRead(holder, item);
        EXPECT_TRUE(back != nullptr && *back == item) << kextest::lispText(item.mkLisp());
    }
}

/// Characters that a text takes in a file of any version, at most.
std::size_t written(KEX::TextView text)
{
    std::size_t sum = 0;
    for (const ACHAR unit : text)
        sum += unit < ' ' || unit == '^' ? 2 : unit <= '~' && unit != '\\' ? 1 : 7;
    return sum;
}

TEST_F(ItemFormTest, LongTextsOfAnyUnitsSurviveMemoryAndFileInSafePieces)
{
    Random random(5);
    CKexDataItem item = CKexDataItem::directory();
    const auto add = [&](const ACHAR* key, auto unitAt) {
        std::basic_string<ACHAR> text;
        for (int i = 0; i < 100'000; ++i) text += unitAt(i);
        item.put(key, CKexDataItem(KEX::TextView(text.data(), text.size())));
    };
    add(KT("plain"), [](int i) { return static_cast<ACHAR>('a' + i % 26); });
    add(KT("controls"), [](int i) { return static_cast<ACHAR>(1 + i % 31); });
    add(KT("carets"), [](int i) { return KT("^ ^J\\U+00E9\\m+1")[i % 15]; });
    add(KT("pairs"), [](int i) { return static_cast<ACHAR>(i % 2 == 0 ? 0xD83D : 0xDE00); });
    add(KT("blanks"), [](int) { return ACHAR(' '); });
    add(KT("any"), [&](int) { return static_cast<ACHAR>(1 + random.below(0xFFFF)); });
    CKexDataKey longKey;
    longKey.append(KEX::TextView(item.find(KT("any"))->text().substr(0, 2000)));
    item.put(longKey, CKexDataItem(true));

    const auto goesOn = [](short code) { return code == 3 || code == 4; };
    const KEX::CSmartResbuf groups = itemToGroups(item);
    for (const resbuf* rb = groups; rb != nullptr; rb = rb->rbnext) {
        if (KEX::rbKind(rb->restype) != KEX::RbKind::text) continue;
        const KEX::TextView piece(rb->resval.rstring);
        ASSERT_LE(written(piece), 255u);
        if (!goesOn(rb->restype)) continue;
        const KEX::TextView next(rb->rbnext->resval.rstring);
        ASSERT_FALSE(KEX::isHighSurrogate(piece.back()) && KEX::isLowSurrogate(next.front()));
    }

    ASSERT_TRUE(set(line(), &item));
    saveAndOpen();
    const auto back = KEX::xrGet(last());
    ASSERT_NE(back, nullptr);
    for (const auto child : *item.getDir()) {
        const CKexDataItem* other = back->getDir()->child(child.key);
        EXPECT_TRUE(other != nullptr && *other == child.item);
    }
}

TEST_F(ItemFormTest, RealsComeThroughFilesToTheLastBitAndWhatIsNotFiniteIsNil)
{
    CKexDataItem item = CKexDataItem::directory();
    const double reals[] = {
        0.1, 1.0 / 3, 5e-324, 1.7976931348623157e308, -1e22, 123456789.123456789};
    for (int i = 0; const double real : reals) item.put(i++, CKexDataItem(real));
    item.put(KT("INF"), CKexDataItem(std::numeric_limits<double>::infinity()));
    item.put(KT("NAN"), CKexDataItem(CKexPoint3d(1, std::nan(""), 2)));
    ASSERT_TRUE(set(line(), &item));

    saveAndOpen();
    const auto back = KEX::xrGet(last());
    ASSERT_NE(back, nullptr);
    for (int i = 0; const double real : reals) {
        double read = 0.0;
        EXPECT_TRUE(back->get(read, i++));
        EXPECT_EQ(read, real);
    }
    EXPECT_TRUE(back->find(KT("INF"))->isNil());
    EXPECT_TRUE(back->find(KT("NAN"))->isNil());
}

TEST_F(ItemFormTest, NestingHasNoLimit)
{
    constexpr int kDepth = 10'000;
    CKexDataKey key;
    for (int i = 0; i < kDepth; ++i) key.append(i % 2 == 0 ? KEX::DataKeyView(i) : KT("D"));
    CKexDataItem directories;
    ASSERT_TRUE(directories.put(key, CKexDataItem(KT("ground"))));
    KEX::ListBuilder builder;
    for (int i = 0; i < kDepth; ++i) builder.begin();
    builder.value(CKexDataItem(1));
    for (int i = 0; i < kDepth; ++i) builder.end(false);
    CKexDataItem lists = builder.take();
    const AcDbObjectId holder = line();
    for (const CKexDataItem* item : {&directories, &lists}) {
        const auto back = storedAndRead(holder, *item);
        EXPECT_TRUE(back != nullptr && *back == *item);
    }
    const auto ground = itemFromGroups(itemToGroups(directories), key);
    ASSERT_NE(ground, nullptr);
    EXPECT_EQ(ground->text(), KEX::TextView(KT("ground")));
}

TEST_F(ItemFormTest, EntitiesAreSoftReferencesThatLastThroughErasingAndFiles)
{
    const AcDbObjectId target = line();
    const AcDbObjectId gone = line();
    const AcDbObjectId holder = line();
    CKexDataItem item;
    item.put(KT("E"), CKexDataItem(nameOf(target)));
    item.put(KT("GONE"), CKexDataItem(nameOf(gone)));
    ASSERT_TRUE(set(holder, &item));
    KEX::OpenObject<AcDbObject>(gone, AcDb::kForWrite)->erase();
    EXPECT_EQ(*KEX::xrGet(holder), item); // the reference stays

    const AcDbHandle handle = target.handle();
    saveAndOpen();
    const auto back = KEX::xrGet(last());
    KEX::CAdsName name;
    AcDbObjectId id;
    ASSERT_TRUE(back != nullptr && back->get(name, KT("E")));
    EXPECT_EQ(acdbGetObjectId(id, name.asName()), Acad::eOk);
    EXPECT_EQ(id.handle(), handle);
    EXPECT_TRUE(back->find(KT("GONE"))->isNil()); // files leave out what is erased
}

/// Groups as pairs of code and value; texts and whole numbers alone.
KEX::CSmartResbuf
chain(std::initializer_list<std::pair<int, std::variant<const ACHAR*, int>>> groups)
{
    KEX::CSmartResbuf result;
    for (const auto& [code, value] : groups) {
        if (const auto* text = std::get_if<const ACHAR*>(&value))
            result.append(acutBuildList(code, *text, RTNONE));
        else result.append(acutBuildList(code, std::get<int>(value), RTNONE));
    }
    return result;
}

TEST_F(ItemFormTest, WhatIsNoItemOrDamagedReadsAsNone)
{
    const std::pair<int, std::variant<const ACHAR*, int>> head{300, KT("KEX_ITEM")}, version{90, 1};
    const KEX::CSmartResbuf damaged[] = {
        chain({head}),
        chain({head, version}),
        chain({head, {90, 0}, {90, 5}}),
        chain({head, {280, 1}, {90, 5}}),
        chain({head, version, {90, 5}, {90, 6}}),                 // something behind the item
        chain({head, version, {3, KT("a")}}),                     // a piece without an end
        chain({head, version, {3, KT("a")}, {2, KT("b")}}),       //
        chain({head, version, {280, 1}}),                         // open directory
        chain({head, version, {280, 1}, {2, KT("k")}, {280, 2}}), // key without value
        chain({head, version, {280, 1}, {90, 5}, {280, 2}}),      // value without key
        chain({head, version, {280, 1}, {4, KT("k")}, {91, 5}, {90, 5}, {280, 2}}),
        chain({head, version, {280, 1}, {91, 5}, {90, 5}, {91, 5}, {90, 5}, {280, 2}}), // key twice
        chain({head, version, {280, 3}}),                                               // open list
        chain({head, version, {280, 3}, {280, 7}, {90, 5}, {280, 4}}), // only a tail
        chain({head, version, {280, 3}, {90, 1}, {280, 7}, {280, 4}}),
        chain({head, version, {280, 3}, {90, 1}, {280, 7}, {90, 5}, {90, 6}, {280, 4}}),
        chain({head, version, {280, 3}, {280, 1}, {280, 2}, {280, 4}}), // directory in a list
        chain({head, version, {280, 2}}),
        chain({head, version, {280, 9}}),
        chain({head, version, {70, 1}}),
    };
    for (const KEX::CSmartResbuf& groups : damaged) {
        EXPECT_EQ(itemForm(groups), ItemForm::item);
        EXPECT_EQ(itemFromGroups(groups), nullptr) << kextest::lispText(groups);
        itemFromGroups(groups, CKexDataKey(KT("k\\k")));
    }
    EXPECT_EQ(itemForm(chain({head, {90, 2}})), ItemForm::later);
    EXPECT_EQ(itemForm(chain({{300, KT("OTHER")}, version})), ItemForm::foreign);
    EXPECT_EQ(itemForm(chain({{90, 1}})), ItemForm::foreign);
    EXPECT_EQ(itemForm(nullptr), ItemForm::none);
}

TEST_F(ItemFormTest, AChainThatIsCutOrMixedAnywhereDoesNoHarm)
{
    Random random(3);
    for (int i = 0; i < 300; ++i) {
        const CKexDataItem item = kextest::randomTree(random, kextest::Values::drawing);
        const KEX::CSmartResbuf groups = itemToGroups(item);
        std::vector<resbuf*> nodes;
        for (resbuf* rb = groups; rb != nullptr; rb = rb->rbnext) nodes.push_back(rb);
        // Two nodes change their contents, and the chain ends anywhere.
        const auto any = [&]() -> resbuf& {
            return *nodes[static_cast<std::size_t>(random.below(static_cast<int>(nodes.size())))];
        };
        resbuf &one = any(), &other = any(), &last = any();
        std::swap(one.restype, other.restype);
        std::swap(one.resval, other.resval);
        resbuf* const rest = std::exchange(last.rbnext, nullptr);
        itemFromGroups(groups);
        itemFromGroups(groups, CKexDataKey(random.below(1000)));
        last.rbnext = rest;
    }
}

} // namespace
