// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups, ids, dictionaries, tables, erasing and copying.
#include "chain_text.h"
#include "drawing/clone.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace orvald::drawing;

TEST(TagList, EveryValueComesBackAndWiderNumbersKeepTheirWidth)
{
    TagList tags;
    const std::string longText(1000, 'x');
    tags.addText(1, "short");
    tags.addText(1, longText);
    tags.addReal(40, -0.0);
    tags.addInteger(70, 65535); // does not fit its group: kept as it is
    tags.addInteger(90, -1);
    tags.addInteger(160, std::int64_t{1} << 40);
    tags.addPoint(10, {1, 2, 3});
    tags.addPoint(11, {1, 2, 0}, true);
    tags.addHandle(330, 0xABCDEF0123);
    tags.addBinary(310, std::string_view("\0\xFF", 2));
    auto it = tags.begin();
    EXPECT_EQ((*it++).text(), "short");
    EXPECT_EQ((*it++).text(), longText);
    EXPECT_TRUE(std::signbit((*it++).real()));
    EXPECT_EQ((*it++).integer(), 65535);
    EXPECT_EQ((*it++).integer(), -1);
    EXPECT_EQ((*it++).integer(), std::int64_t{1} << 40);
    EXPECT_EQ((*it++).point(), (Point{1, 2, 3}));
    EXPECT_EQ((*it).kind(), TagKind::point2);
    EXPECT_EQ((*it++).point(), (Point{1, 2, 0}));
    EXPECT_EQ((*it++).handle(), 0xABCDEF0123u);
    EXPECT_EQ((*it++).bytes(), std::string_view("\0\xFF", 2));
    EXPECT_EQ(it, tags.end());
    EXPECT_EQ(TagList(tags), tags);
}

TEST(TagList, EditsLikeAListOfGroups)
{
    // Random edits against the same edits on a vector of numbers.
    std::mt19937 random(7);
    TagList tags;
    std::vector<int> model;
    for (int step = 0; step < 3000; ++step) {
        const std::size_t at = model.empty() ? 0 : random() % (model.size() + 1);
        auto place = tags.begin();
        for (std::size_t i = 0; i < at; ++i) ++place;
        TagList fresh;
        const int value = static_cast<int>(random() % 100000);
        if (value % 3 == 0) fresh.addText(1, std::to_string(value));
        else fresh.addInteger(90, value);
        if (random() % 3 != 0 || at == model.size()) {
            EXPECT_EQ((*tags.insert(place, fresh)).code(), value % 3 == 0 ? 1 : 90);
            model.insert(model.begin() + static_cast<std::ptrdiff_t>(at), value);
        } else if (random() % 2 != 0) {
            tags.erase(place);
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        } else {
            tags.replace(place, fresh);
            model[at] = value;
        }
    }
    std::vector<int> left;
    for (const Tag tag : tags)
        left.push_back(tag.isText() ? std::stoi(std::string(tag.text()))
                                    : static_cast<int>(tag.integer()));
    EXPECT_EQ(left, model);
}

TEST(HandleMap, FindsWhatWasAddedAndNothingElse)
{
    HandleMap map;
    std::mt19937_64 random(3);
    std::map<Handle, Index> model;
    for (Index i = 0; i < 20000; ++i) {
        const Handle handle = i % 2 == 0 ? i + 1 : random() >> (random() % 60);
        EXPECT_EQ(map.add(handle, i), handle != 0 && model.try_emplace(handle, i).second);
    }
    for (const auto& [handle, index] : model) ASSERT_EQ(map.find(handle), index);
    for (int i = 0; i < 1000; ++i) {
        const Handle handle = random();
        ASSERT_EQ(map.find(handle) != kNone, model.contains(handle));
    }
}

TEST(Dictionary, BehavesLikeASortedMapOfKeys)
{
    Dictionary dictionary;
    std::map<std::string, Handle> model; // by key in capitals
    std::mt19937 random(5);
    for (Handle step = 1; step < 4000; ++step) {
        std::string key = "Key" + std::to_string(random() % 700);
        if (random() % 2 != 0) key[0] = 'k';
        if (random() % 4 == 0) {
            EXPECT_EQ(dictionary.remove(key), model.erase(nameKey(key)) != 0);
        } else {
            EXPECT_EQ(dictionary.add(key, step, false),
                      model.try_emplace(nameKey(key), step).second);
        }
    }
    ASSERT_EQ(dictionary.size(), model.size());
    auto expected = model.begin();
    for (const Dictionary::Entry& entry : dictionary.entries()) {
        EXPECT_EQ(nameKey(entry.key), expected->first);
        EXPECT_EQ(entry.object, expected->second);
        EXPECT_EQ(dictionary.find(entry.key), &entry);
        ++expected;
    }
}

TEST(Dictionary, KeepsTheOrderOfItsFileUntilItIsChanged)
{
    Dictionary dictionary;
    for (const std::string_view key : {"b", "C", "a"}) dictionary.load(key, 1, false);
    const auto order = [&] {
        std::string text;
        for (const Dictionary::Entry* entry : dictionary.fileOrder()) text += entry->key;
        return text;
    };
    EXPECT_EQ(dictionary.entries().front().key, "a");
    EXPECT_EQ(order(), "bCa");
    EXPECT_FALSE(dictionary.load("B", 2, false));
    EXPECT_EQ(order(), "bCa");
    dictionary.add("*A3", 2, false);
    EXPECT_EQ(order(), "*A3abC");
    EXPECT_EQ(dictionary.anonymousKey(), "*A4");
}

TEST(Ids, BelongToOneDrawingAndDieWithIt)
{
    auto first = Drawing::createNew(), second = Drawing::createNew();
    const ObjectId id = first->idOf(first->rootDictionary());
    EXPECT_EQ(Drawing::ofId(id), first.get());
    EXPECT_EQ(second->find(id), nullptr);
    EXPECT_EQ(first->find(ObjectId{id.value + 0xFFFFFF}), nullptr);
    ads_name name;
    toName(id, name);
    EXPECT_EQ(fromName(name), id);
    first.reset();
    EXPECT_EQ(Drawing::ofId(id), nullptr);
    for (int i = 0; i < 100; ++i) // a new drawing does not answer to old names
        EXPECT_EQ(Drawing::createNew()->find(id), nullptr);
}

TEST(Tables, RenamingALayerReachesEveryPlaceThatUsesIt)
{
    Fixture f;
    f.functions.regApp(u"APP");
    f.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Wand|70 0");
    const ObjectId line = f.make("0 LINE|8 WAND|10 0 0 0|11 1 0 0|-3|1001 APP|1003 wand");
    f.drawing->header.setText("$CLAYER", 8, "Wand");
    const Index layer = f.drawing->findRecord(TableId::layer, "wand");
    ASSERT_TRUE(f.drawing->renameRecord(TableId::layer, layer, "Mauer"));
    EXPECT_EQ(f.record(line).layer(), "Mauer");
    EXPECT_EQ(f.record(line).extras()->xdata.text(1003), "Mauer");
    EXPECT_EQ(f.drawing->header.text("$CLAYER"), "Mauer");
    EXPECT_EQ(f.drawing->findRecord(TableId::layer, "Wand"), kNone);
    EXPECT_FALSE(f.drawing->renameRecord(TableId::layer, layer, "0"));
}

TEST(Erasing, HidesWhatHangsOnTheErasedAndComesBack)
{
    Fixture f;
    f.make("0 POLYLINE|10 0 0 0");
    f.make("0 VERTEX|10 1 0 0");
    const ObjectId line = f.make("0 SEQEND");
    const Index part = f.drawing->firstChild(f.drawing->indexOf(line));
    EXPECT_EQ(f.functions.entDel(line), ErrNo::none);
    EXPECT_TRUE(f.drawing->isGone(part));
    EXPECT_EQ(f.functions.entDel(line), ErrNo::none);
    EXPECT_FALSE(f.drawing->isGone(part));
    EXPECT_EQ(f.functions.entDel(f.drawing->idOf(part)), ErrNo::badType);
    EXPECT_EQ(f.functions.entDel(f.functions.namedObjDict()), ErrNo::badType);

    // An object that is erased leaves its dictionary and does not go back by itself.
    const Index root = f.drawing->rootDictionary();
    const ObjectId object = f.make("0 XRECORD|100 AcDbXrecord|1 x");
    ASSERT_EQ(f.functions.dictAdd(f.functions.namedObjDict(), u"MINE", object), ErrNo::none);
    f.functions.entDel(object);
    EXPECT_EQ(f.drawing->dictionaryEntry(root, "MINE"), kNone);
    f.functions.entDel(object);
    EXPECT_EQ(f.drawing->dictionaryEntry(root, "MINE"), kNone);
}

TEST(DeepCopy, TranslatesReferencesToWhatWasCopied)
{
    Fixture f;
    const Index root = f.drawing->rootDictionary();
    const Index dictionary = f.drawing->addDictionary(true);
    f.drawing->addToDictionary(root, "SET", dictionary);
    const ObjectId a = f.make("0 XRECORD|100 AcDbXrecord|280 1|1 a");
    f.drawing->addToDictionary(dictionary, "A", f.drawing->indexOf(a));
    const std::string target = std::to_string(f.record(a).handle);
    Record pointing(Kind::xrecord, Family::object);
    pointing.tags.addText(100, "AcDbXrecord");
    const Handle layer = f.drawing->at(f.drawing->findRecord(TableId::layer, "0")).handle;
    for (const int code : {320, 330, 340}) pointing.tags.addHandle(code, f.record(a).handle);
    pointing.tags.addHandle(340, layer);
    f.drawing->addToDictionary(dictionary, "B", f.drawing->add(std::move(pointing)));

    const auto copyInto = [&](Drawing& to) {
        std::unordered_map<Index, Index> map;
        const Index copy = copyLoose(*f.drawing, dictionary, to, map);
        const Index copyA = to.dictionaryEntry(copy, "a"), copyB = to.dictionaryEntry(copy, "b");
        EXPECT_EQ(to.at(copyA).owner, to.at(copy).handle);
        EXPECT_EQ(to.at(copyA).extras()->reactors, std::vector{to.at(copy).handle});
        const TagList& tags = to.at(copyB).tags;
        EXPECT_EQ(tags.handle(320), f.record(a).handle); // never translated
        EXPECT_EQ(tags.handle(330), to.at(copyA).handle);
        EXPECT_EQ(tags.handle(340), to.at(copyA).handle);
        return (*std::next(tags.find(340))).handle();
    };
    EXPECT_EQ(copyInto(*f.drawing), layer);                // stays within the drawing
    EXPECT_EQ(copyInto(*Drawing::createNew()), Handle{0}); // names nothing in another one
}
