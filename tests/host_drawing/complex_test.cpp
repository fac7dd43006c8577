// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities with parts, blocks, walks, tables and dictionaries by lists.
#include "chain_text.h"

#include <gtest/gtest.h>

#include <random>

using namespace orvald::drawing;

namespace {

std::string typesFrom(Fixture& f, ObjectId id)
{
    std::string types;
    for (ObjectId next = id; !next.isNull();) {
        types += std::string(f.record(next).typeName()) + " ";
        EXPECT_EQ(f.functions.entNext(next, next), ErrNo::none);
    }
    return types;
}

ObjectId first(Fixture& f)
{
    ObjectId id;
    f.functions.entNext({}, id);
    return id;
}

} // namespace

TEST(ComplexEntity, IsNotThereBeforeItsEndMark)
{
    Fixture f;
    const ObjectId line = f.make("0 LINE|10 0 0 0|11 1 0 0");
    EXPECT_TRUE(f.make("0 POLYLINE|66 1|10 0 0 0|70 9").isNull());
    f.make("0 VERTEX|10 0 0 1|70 32");
    f.make("0 VERTEX|10 1 0 2|70 32");
    EXPECT_EQ(f.functions.entLast(), line);
    const ObjectId poly = f.make("0 SEQEND|8 ignored");
    EXPECT_EQ(f.functions.entLast(), poly);
    EXPECT_EQ(typesFrom(f, first(f)), "LINE POLYLINE VERTEX VERTEX SEQEND ");
    EXPECT_NE(f.get(poly).find("|100 AcDb3dPolyline|"), std::string::npos);
    EXPECT_EQ(f.functions.entDel(poly), ErrNo::none);
    EXPECT_EQ(f.functions.entLast(), line);
    EXPECT_EQ(typesFrom(f, first(f)), "LINE ");
}

TEST(ComplexEntity, WrongDataOrACancelDropsTheWhole)
{
    Fixture f;
    const std::uint32_t before = f.drawing->recordCount();
    for (const std::string_view wrong :
         {"0 LINE|10 0 0 0|11 1 0 0", "0 ATTRIB|10 0 0 0|40 1|1 a|2 T|70 0", "0 VERTEX|40 1",
          "0 BLOCK|2 B|10 0 0 0", ""}) {
        f.make("0 POLYLINE|10 0 0 0");
        f.make("0 VERTEX|10 0 0 0");
        EXPECT_TRUE(f.make(wrong).isNull());
        EXPECT_TRUE(f.make("0 SEQEND").isNull()) << wrong;
    }
    EXPECT_EQ(f.drawing->recordCount(), before);
}

TEST(Block, IsGatheredAndInsertedWithItsAttributes)
{
    Fixture f;
    EXPECT_EQ(f.make("0 BLOCK|2 Bolzen|70 0|10 1 2 0"), ObjectId{});
    f.make("0 CIRCLE|8 Kreis|10 0 0 0|40 1");
    f.make("0 ATTDEF|10 0 0 0|40 2|1 M8|3 Name?|2 NAME|70 0");
    EXPECT_FALSE(f.make("0 ENDBLK").isNull());
    EXPECT_EQ(f.blockName, "Bolzen");
    ObjectId block;
    EXPECT_EQ(f.functions.tblObjName(u"block", u"BOLZEN", block), ErrNo::none);
    EXPECT_EQ(f.record(block).kind(), Kind::block);
    EXPECT_EQ(f.record(block).tags.integer(70), 2); // has attributes
    EXPECT_EQ(typesFrom(f, block), "BLOCK CIRCLE ATTDEF ");

    f.make("0 INSERT|66 1|2 Bolzen|10 5 5 0|50 1.5");
    f.make("0 ATTRIB|10 5 5 0|40 2|1 M10|2 NAME|70 0");
    const ObjectId insert = f.make("0 SEQEND");
    EXPECT_EQ(f.functions.entLast(), insert);
    EXPECT_EQ(typesFrom(f, insert), "INSERT ATTRIB SEQEND ");
    EXPECT_EQ(f.body(insert),
              "66 1|2 Bolzen|10 5 5 0|41 1|42 1|43 1|50 1.5|70 0|71 0|44 0|45 0|210 0 0 1");

    resbuf* chain = nullptr;
    EXPECT_EQ(f.functions.tblSearch(u"BLOCK", u"bolzen", false, chain), ErrNo::none);
    EXPECT_TRUE(showChain(*f.drawing, Chain(chain).get())
                    .starts_with("0 BLOCK|2 Bolzen|70 2|10 1 2 0|-2 #"));
}

TEST(Block, MayBeDefinedAnewButNeverHoldItself)
{
    Fixture f;
    f.make("0 BLOCK|2 A|10 0 0 0");
    f.make("0 POINT|10 0 0 0");
    f.make("0 ENDBLK");
    f.make("0 BLOCK|2 B|10 0 0 0");
    f.make("0 INSERT|2 A|10 0 0 0");
    f.make("0 ENDBLK");
    f.make("0 BLOCK|2 a|10 0 0 0"); // anew, by way of B it would hold itself
    EXPECT_TRUE(f.make("0 INSERT|2 B|10 0 0 0").isNull());
    EXPECT_EQ(f.error, ErrNo::badType);
    f.make("0 BLOCK|2 A|10 0 0 0");
    f.make("0 LINE|10 0 0 0|11 1 1 0");
    f.make("0 ENDBLK");
    ObjectId block;
    f.functions.tblObjName(u"BLOCK", u"A", block);
    EXPECT_EQ(typesFrom(f, block), "BLOCK LINE ");
    f.make("0 BLOCK|2 *U|70 1|10 0 0 0");
    f.make("0 ENDBLK");
    EXPECT_EQ(f.blockName, "*U1");
    f.make("0 BLOCK|2 *Model_Space|10 0 0 0");
    EXPECT_EQ(f.error, ErrNo::badType);
}

TEST(Tables, RecordsAreMadeFoundAndWalked)
{
    Fixture f;
    f.make(
        "0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Neu|70 0|62 5|6 Continuous");
    EXPECT_EQ(f.error, ErrNo::none);
    f.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 NEU|70 0");
    EXPECT_EQ(f.error, ErrNo::badType); // the name is taken
    f.make("0 LTYPE|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 STRICH|70 0|3 __ _|72 "
           "65|73 2|"
           "40 1.5|49 1|74 0|49 -0.5|74 0");
    f.make("0 STYLE|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 ISO|70 0|40 0|3 "
           "isocp.shx");
    EXPECT_EQ(f.error, ErrNo::none);
    const auto search = [&](std::u16string_view table, std::u16string_view name) {
        resbuf* chain = nullptr;
        f.error = f.functions.tblSearch(table, name, true, chain);
        return showChain(*f.drawing, Chain(chain).get());
    };
    EXPECT_EQ(search(u"LAYER", u"neu"), "0 LAYER|2 Neu|70 0|62 5|6 Continuous");
    EXPECT_EQ(search(u"ltype", u"Strich"),
              "0 LTYPE|2 STRICH|70 0|3 __ _|72 65|73 2|40 1.5|49 1|74 0|49 -0.5|74 0");
    EXPECT_EQ(search(u"LAYER", u"none"), "");
    EXPECT_EQ(f.error, ErrNo::badName);
    search(u"TABLE", u"x");
    EXPECT_EQ(f.error, ErrNo::badTable);
    std::string names;
    resbuf* chain = nullptr;
    for (bool rewind = true;
         f.functions.tblNext(u"LAYER", rewind, chain) == ErrNo::none && chain != nullptr;
         rewind = false)
        names += utf8(Chain(chain)->rbnext->resval.rstring) + " ";
    EXPECT_EQ(names, "0 Neu ");
    search(u"LAYER", u"0"); // the walk goes on behind what was found
    f.functions.tblNext(u"LAYER", false, chain);
    EXPECT_EQ(utf8(Chain(chain)->rbnext->resval.rstring), "Neu");
}

TEST(Tables, ALayerIsChangedThroughItsName)
{
    Fixture f;
    const ObjectId point = f.make("0 POINT|8 Alt|10 0 0 0");
    ObjectId layer;
    f.functions.tblObjName(u"LAYER", u"ALT", layer);
    EXPECT_EQ(f.mod(layer, "2 Neu|62 -3|70 4"), ErrNo::none);
    EXPECT_EQ(f.record(point).layer(), "Neu");
    EXPECT_TRUE(f.drawing->isLayerLocked("neu"));
    EXPECT_TRUE(f.drawing->isLayerHidden("neu"));
    EXPECT_EQ(f.mod(layer, "62 0"), ErrNo::badColour);
    EXPECT_EQ(f.mod(layer, "2 0"), ErrNo::badValue);
}

TEST(Dictionaries, HoldXrecordsWithEveryKindOfValue)
{
    Fixture f;
    const ObjectId root = f.functions.namedObjDict();
    const ObjectId dictionary = f.make("0 DICTIONARY|100 AcDbDictionary|281 1");
    EXPECT_EQ(f.functions.dictAdd(root, u"Mine", dictionary), ErrNo::none);
    const std::string values =
        "1 text^x|10 1 2 3|40 0.1|62 5|67 1|70 -3|90 100000|102 {|160 12345678901|"
        "280 7|290 1|330 #1f|340 #10|410 x|1070 4";
    f.make("0 XRECORD|100 AcDbXrecord|" + values);
    EXPECT_EQ(f.error, ErrNo::badType); // 410 is not for xrecords
    const std::string allowed =
        "1 text^x|10 1 2 3|40 0.1|62 5|67 1|70 -3|90 100000|102 {|160 12345678901|"
        "280 7|290 1|330 #1f|340 #10|1070 4";
    const ObjectId record = f.make("0 XRECORD|100 AcDbXrecord|280 1|" + allowed);
    EXPECT_EQ(f.error, ErrNo::none);
    EXPECT_EQ(f.functions.dictAdd(dictionary, u"Äpfel", record), ErrNo::none);
    resbuf* chain = nullptr;
    EXPECT_EQ(f.functions.dictSearch(dictionary, u"ÄPFEL", false, chain), ErrNo::none);
    const std::string told = showChain(*f.drawing, Chain(chain).get());
    EXPECT_EQ(told.substr(told.find("|100 ")), "|100 AcDbXrecord|280 1|" + allowed);
    EXPECT_EQ(f.mod(record, "1 other"), ErrNo::none); // xrecords stay as they are
    EXPECT_EQ(f.record(record).tags.text(1), "text^ x");
}

TEST(Dictionaries, RefuseWhatWouldBreakThemAndWalkInKeyOrder)
{
    Fixture f;
    const ObjectId root = f.functions.namedObjDict();
    const ObjectId dictionary = f.make("0 DICTIONARY|100 AcDbDictionary");
    f.functions.dictAdd(root, u"D", dictionary);
    const auto xrecord = [&] { return f.make("0 XRECORD|100 AcDbXrecord|1 x"); };
    const ObjectId object = xrecord();
    EXPECT_EQ(f.functions.dictAdd(dictionary, u"b", object), ErrNo::none);
    EXPECT_EQ(f.functions.dictAdd(dictionary, u"c", object), ErrNo::badValue); // has an owner
    EXPECT_EQ(f.functions.dictAdd(dictionary, u"B", xrecord()), ErrNo::badValue);
    EXPECT_EQ(f.functions.dictAdd(dictionary, u"e", f.make("0 POINT|10 0 0 0")), ErrNo::badType);
    EXPECT_EQ(f.functions.dictAdd(object, u"f", xrecord()), ErrNo::badName);
    const ObjectId loose = f.make("0 DICTIONARY|100 AcDbDictionary"),
                   inner = f.make("0 DICTIONARY|100 AcDbDictionary");
    f.functions.dictAdd(loose, u"in", inner);
    EXPECT_EQ(f.functions.dictAdd(inner, u"out", loose), ErrNo::badType); // would stand in itself
    f.functions.dictAdd(dictionary, u"*", xrecord());
    f.functions.dictAdd(dictionary, u"A", xrecord());
    EXPECT_EQ(f.functions.dictRename(dictionary, u"a", u"Z"), ErrNo::none);
    EXPECT_EQ(f.functions.dictRename(dictionary, u"z", u"b"), ErrNo::badValue);
    std::string keys;
    for (const Dictionary::Entry& entry :
         f.drawing->dictionary(f.drawing->indexOf(dictionary))->entries())
        keys += entry.key + " ";
    EXPECT_EQ(keys, "*A1 b Z ");
    int walked = 0;
    resbuf* chain = nullptr;
    for (bool rewind = true;
         f.functions.dictNext(dictionary, rewind, chain) == ErrNo::none && chain != nullptr;
         rewind = false) {
        acutRelRb(chain);
        ++walked;
    }
    EXPECT_EQ(walked, 3);
    ObjectId removed;
    EXPECT_EQ(f.functions.dictRemove(dictionary, u"B", removed), ErrNo::none);
    EXPECT_EQ(removed, object);
    EXPECT_EQ(f.record(object).owner, 0u);
    EXPECT_EQ(f.functions.dictAdd(dictionary, u"again", object), ErrNo::none);
}

TEST(Walk, EndsAreThoseThatASearchFindsWhateverWasErasedAndCameBack)
{
    Fixture f;
    const Index space = f.drawing->modelSpace();
    const auto ends = [&] {
        ObjectId front, back;
        for (Index at = f.drawing->firstChild(space); at != kNone; at = f.drawing->next(at)) {
            if (f.drawing->at(at).erased) continue;
            if (front.isNull()) front = f.drawing->idOf(at);
            back = f.drawing->idOf(at);
        }
        return std::pair(front, back);
    };
    std::mt19937 random(7);
    std::vector<ObjectId> made;
    Journal& journal = f.drawing->journal();
    for (int round = 0; round < 3000; ++round) {
        const auto what = random() % 12;
        if (what < 3 || made.empty()) made.push_back(f.make("0 POINT|10 0 0 0"));
        else if (what < 7) f.functions.entDel(first(f).isNull() ? made.back() : first(f));
        else if (what < 10) {
            const ObjectId last = f.functions.entLast();
            f.functions.entDel(last.isNull() ? made.front() : last);
        } else if (what == 10) {
            f.functions.entDel(made[random() % made.size()]); // erases or restores
        } else {
            journal.undo(1);
        }
        journal.step();
        ASSERT_EQ(std::pair(first(f), f.functions.entLast()), ends()) << "round " << round;
    }
}

TEST(HandEnt, FindsErasedObjectsAndRefusesRubbish)
{
    Fixture f;
    const ObjectId id = f.make("0 POINT|10 0 0 0");
    f.functions.entDel(id);
    ObjectId found;
    EXPECT_EQ(f.functions.handEnt(utf16(f.get(id)), found), ErrNo::badHandle);
    char handle[20];
    *std::to_chars(handle, handle + 20, f.record(id).handle, 16).ptr = 0;
    EXPECT_EQ(f.functions.handEnt(utf16(handle), found), ErrNo::none);
    EXPECT_EQ(found, id);
    for (const std::u16string_view bad : {u"", u"0", u"XYZ", u"FFFFFFFF", u"11111111111111111111"})
        EXPECT_EQ(f.functions.handEnt(bad, found), ErrNo::badHandle);
}
