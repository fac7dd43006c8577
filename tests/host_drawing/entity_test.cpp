// SPDX-License-Identifier: LicenseRef-ORVALD
// Simple entities by lists: what is told, made, changed, refused.
#include "chain_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace orvald::drawing;

TEST(EntGet, TellsNameTypeOwnerHandleAndDefaults)
{
    Fixture f;
    const ObjectId id = f.make("0 LINE|8 Wand|10 1 2 3|11 4 5 6");
    const std::string all = f.get(id);
    char handle[20];
    *std::to_chars(handle, handle + 20, f.record(id).handle, 16).ptr = 0;
    std::string upper(handle);
    for (char& c : upper) c = static_cast<char>(std::toupper(c));
    EXPECT_EQ(all, "-1 #" + std::string(handle) + "|0 LINE|330 #1f|5 " + upper +
                       "|100 AcDbEntity|67 0|410 Model|8 Wand|100 AcDbLine|39 0|10 1 2 3|11 4 5 6|"
                       "210 0 0 1");
    EXPECT_NE(f.drawing->findRecord(TableId::layer, "WAND"), kNone); // the layer was made
}

TEST(EntGet, GivesAnglesInRadiansAndVerticesInThePlane)
{
    Fixture f;
    const double angle = std::numbers::pi / 6;
    const ObjectId arc = f.make("0 ARC|10 0 0 0|40 5|50 " + showNumber(angle) + "|51 3");
    EXPECT_EQ(f.record(arc).tags.real(50), 30.0); // degrees in the record, short ones
    EXPECT_NE(f.get(arc).find("|50 " + showNumber(angle) + "|"), std::string::npos);

    const ObjectId line = f.make("0 LWPOLYLINE|100 AcDbEntity|8 0|100 AcDbPolyline|90 2|70 1|"
                                 "10 0 0 0|42 0.5|10 3 4 0|210 0 0 1");
    EXPECT_EQ(f.body(line), "90 2|70 1|43 0|38 0|39 0|10 0 0 0|40 0|41 0|42 0.5|91 0|"
                            "10 3 4 0|40 0|41 0|42 0|91 0|210 0 0 1");
    EXPECT_NE(f.get(line, {}, true).find("|10 3 4 -|"), std::string::npos);
}

TEST(EntGet, EveryAngleComesBackAsItWasGiven)
{
    Fixture f;
    int exact = 0;
    for (int i = 0; i < 1000; ++i) {
        const double angle = i * 0.0061803398875;
        const ObjectId id = f.make("0 TEXT|10 0 0 0|40 1|1 x|50 " + showNumber(angle));
        resbuf* chain = nullptr;
        f.functions.entGet(id, nullptr, chain);
        const Chain owner(chain);
        while (chain != nullptr && chain->restype != 50) chain = chain->rbnext;
        ASSERT_NE(chain, nullptr);
        EXPECT_NEAR(chain->resval.rreal, angle, 1e-15 * angle);
        exact += chain->resval.rreal == angle ? 1 : 0;
    }
    EXPECT_GT(exact, 900); // a few radians have no degrees that lead back to the last bit
}

TEST(EntMake, DemandsTheGroupsThatMakeAnEntity)
{
    Fixture f;
    const std::string_view good[] = {
        "0 POINT|10 0 0 0",
        "8 0|0 CIRCLE|10 0 0 0|40 1", // the type may come second
        "0 TEXT|10 0 0 0|40 1|1 abc",
        "0 SOLID|10 0 0 0|11 1 0 0|12 0 1 0|13 1 1 0",
        "0 3DFACE|10 0 0 0|11 1 0 0|12 0 1 0|13 1 1 0",
        "0 ELLIPSE|100 AcDbEntity|100 AcDbEllipse|10 0 0 0|11 1 0 0|40 0.5|41 0|42 6.28",
        "0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|1 abc",
        "0 XLINE|100 AcDbEntity|100 AcDbXline|10 0 0 0|11 1 0 0",
        "0 HATCH|100 AcDbEntity|100 AcDbHatch|10 0 0 0|210 0 0 1|2 SOLID|70 1|71 0|91 0|75 0|76 "
        "1|98 0"};
    for (const std::string_view text : good) {
        EXPECT_FALSE(f.make(text).isNull()) << text;
        EXPECT_EQ(f.error, ErrNo::none) << text;
    }
    const std::string_view bad[] = {
        "0 LINE|10 0 0 0",                                 // no end
        "8 0|62 1|0 LINE|10 0 0 0|11 1 0 0",               // type too late
        "0 CIRCLE|10 0 0 0|40 0",                          // no radius
        "0 CIRCLE|10 0 0 0|40 1|6 NOSUCH",                 // unknown linetype
        "0 CIRCLE|10 0 0 0|40 1|62 300",                   // no colour
        "0 CIRCLE|10 0 0 0|40 1|8 a*b",                    // no layer name
        "0 CIRCLE|10 0 0 0|40 1|210 0 0 0",                // no normal
        "0 CIRCLE|10 0 0 inf|40 1",                        // not finite
        "0 CIRCLE|10 0 0 0|40 nan",                        //
        "0 TEXT|10 0 0 0|40 1|1 abc|7 NOSUCH",             // unknown style
        "0 INSERT|2 NOSUCH|10 0 0 0",                      // unknown block
        "0 ELLIPSE|10 0 0 0|11 1 0 0|40 0.5|41 0|42 6.28", // needs its markers
        "0 LWPOLYLINE|100 AcDbEntity|90 1|10 0 0 0",
        "0 VERTEX|10 0 0 0", // stands alone
        "0 SEQEND",
        "0 ENDBLK",
        "0 NOSUCH|10 0 0 0",
        "0 VIEWPORT|10 0 0 0",
        "10 0 0 0"};
    const std::uint32_t before = f.drawing->recordCount();
    for (const std::string_view text : bad) {
        EXPECT_TRUE(f.make(text).isNull()) << text;
        EXPECT_EQ(f.error, ErrNo::badType) << text;
    }
    EXPECT_EQ(f.drawing->recordCount(), before);
}

TEST(EntMake, TakesCurrentPropertiesAndThePlace)
{
    Fixture f;
    f.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Aktuell|70 0|62 3");
    f.drawing->header.setText("$CLAYER", 8, "Aktuell");
    f.drawing->header.setInteger("$CECOLOR", 62, 5);
    const ObjectId model = f.make("0 POINT|10 0 0 0");
    EXPECT_EQ(f.record(model).layer(), "Aktuell");
    EXPECT_EQ(f.record(model).tags.integer(62), 5);
    const ObjectId sheet = f.make("0 POINT|67 1|410 Layout1|62 256|10 0 0 0");
    EXPECT_EQ(f.drawing->blockOf(f.drawing->indexOf(sheet)), f.drawing->paperSpace());
    EXPECT_EQ(f.record(sheet).tags.integer(67), 1);
    EXPECT_FALSE(f.record(sheet).tags.has(62));
    EXPECT_TRUE(f.make("0 POINT|410 NoSuch|10 0 0 0").isNull());
}

TEST(EntMake, CutsLongTextsIntoPiecesThatEveryReaderTakes)
{
    Fixture f;
    std::string text;
    for (int i = 0; i < 200; ++i) text += i % 7 == 0 ? "^\U0001F600" : "wort ";
    const ObjectId id = f.make("0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|40 2|1 " + text);
    std::string joined;
    for (const Tag tag : f.record(id).tags) {
        if (tag.code() != 3 && tag.code() != 1) continue;
        EXPECT_LE(utf16(tag.text()).size(), 250u);
        joined += text8(tag.text());
    }
    EXPECT_EQ(joined, text);
}

TEST(EntMod, ALIstThatGoesBackUnchangedChangesNoBit)
{
    Fixture f;
    f.functions.regApp(u"APP");
    const std::string_view entities[] = {
        "0 LINE|8 a|62 3|10 0.1 0.2 0.3|11 1 2 3|210 0 1 0",
        "0 ARC|10 0 0 0|40 5|50 1.1|51 2.2|-3|1001 APP|1040 0.1",
        "0 TEXT|10 0 0 0|40 1|1 a^b|50 0.7|72 1|11 5 5 0",
        "0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|90 3|70 1|43 0.5|10 0 0 0|42 0.5|10 3 4 0|"
        "10 5 5 0|40 1|41 2",
        "0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|40 2|1 abc",
        "0 HATCH|100 AcDbEntity|100 AcDbHatch|10 0 0 0|210 0 0 1|2 ANSI31|70 0|71 0|91 1|92 1|93 1|"
        "72 2|10 1 2 0|40 5|50 0.3|51 1.7|73 1|97 0|75 0|76 1|52 0.7|41 1|77 0|78 0|98 0"};
    for (const std::string_view text : entities) {
        const ObjectId id = f.make(text);
        ASSERT_EQ(f.error, ErrNo::none) << text;
        const Record before = f.record(id);
        resbuf* chain = nullptr;
        const Chain all(acutBuildList(RTSTR, u"*", 0));
        f.functions.entGet(id, all.get(), chain, true);
        EXPECT_EQ(f.functions.entMod(Chain(chain).get()), ErrNo::none) << text;
        EXPECT_TRUE(f.record(id).tags == before.tags) << f.get(id);
        EXPECT_EQ(f.record(id).extras() != nullptr, before.extras() != nullptr);
        if (before.extras()) { EXPECT_TRUE(f.record(id).extras()->xdata == before.extras()->xdata); }
    }
}

TEST(EntMod, ChangesWhatIsGivenAndOnlyThat)
{
    Fixture f;
    const ObjectId line = f.make("0 LINE|8 0|10 0 0 0|11 1 0 0");
    EXPECT_EQ(f.mod(line, "62 1|8 Neu|39 2.5"), ErrNo::none);
    EXPECT_EQ(f.record(line).tags.integer(62), 1);
    EXPECT_EQ(f.body(line), "39 2.5|10 0 0 0|11 1 0 0|210 0 0 1");
    EXPECT_NE(f.drawing->findRecord(TableId::layer, "Neu"), kNone);
    EXPECT_EQ(f.mod(line, "62 256"), ErrNo::none); // by layer again: the group goes
    EXPECT_FALSE(f.record(line).tags.has(62));

    const ObjectId poly = f.make("0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|90 2|70 0|43 1|"
                                 "10 0 0 0|10 9 0 0");
    EXPECT_EQ(
        f.mod(poly,
              "70 1|43 2|10 0 0 0|40 1|41 1|42 0|10 9 0 0|40 1|41 1|42 1|10 9 9 0|40 1|41 1|42 0"),
        ErrNo::none);
    EXPECT_EQ(f.body(poly),
              "90 3|70 1|43 2|38 0|39 0|10 0 0 0|40 2|41 2|42 0|91 0|10 9 0 0|40 2|41 2|"
              "42 1|91 0|10 9 9 0|40 2|41 2|42 0|91 0|210 0 0 1");

    const ObjectId text = f.make("0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|40 2|1 abc");
    EXPECT_EQ(f.mod(text, "1 " + std::string(600, 'x')), ErrNo::none);
    EXPECT_EQ(f.record(text).tags.text(3), std::string(250, 'x'));
    EXPECT_EQ(f.mod(text, "1 kurz"), ErrNo::none);
    EXPECT_FALSE(f.record(text).tags.has(3));
}

TEST(EntMod, RefusesAndLeavesTheEntityAsItWas)
{
    Fixture f;
    f.make("0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Zu|70 4");
    const ObjectId locked = f.make("0 POINT|8 Zu|10 0 0 0");
    EXPECT_EQ(f.mod(locked, "62 1"), ErrNo::lockedLayer);
    EXPECT_EQ(f.functions.entDel(locked), ErrNo::lockedLayer);
    const ObjectId id = f.make("0 CIRCLE|10 0 0 0|40 1");
    const TagList before = f.record(id).tags;
    EXPECT_EQ(f.mod(id, "0 ARC"), ErrNo::typeChange);
    EXPECT_EQ(f.mod(id, "5 1"), ErrNo::handleChange);
    EXPECT_EQ(f.mod(id, "6 NOSUCH"), ErrNo::badLinetype);
    EXPECT_EQ(f.mod(id, "40 -1"), ErrNo::badValue);
    EXPECT_EQ(f.mod(id, "40 inf"), ErrNo::badType);
    EXPECT_EQ(f.mod(id, "-3|1001 UNKNOWN|1000 x"), ErrNo::noApp);
    EXPECT_TRUE(f.record(id).tags == before);
    f.functions.entDel(id);
    EXPECT_EQ(f.mod(id, "62 1"), ErrNo::modDeleted);
    EXPECT_EQ(f.mod({}, "62 1"), ErrNo::badName);
    f.get(id);
    EXPECT_EQ(f.error, ErrNo::deleted);
}

TEST(Xdata, BlocksAreReplacedByApplicationAndRemovedByTheNameAlone)
{
    Fixture f;
    f.functions.regApp(u"ONE");
    f.functions.regApp(u"TWO");
    EXPECT_FALSE(f.functions.regApp(u"one"));
    const ObjectId id = f.make("0 POINT|10 0 0 0|-3|1001 ONE|1000 a|1001 TWO|1040 2");
    EXPECT_EQ(f.mod(id, "-3|1001 one|1000 b|1002 {|1071 7|1002 }"), ErrNo::none);
    const std::string all = f.get(id, "*");
    EXPECT_EQ(all.substr(all.find("-3")),
              "-3|1001 one|1000 b|1002 {|1071 7|1002 }|1001 TWO|1040 2");
    const std::string two = f.get(id, "TW?");
    EXPECT_EQ(two.substr(two.find("-3")), "-3|1001 TWO|1040 2");
    EXPECT_EQ(f.get(id).find("-3"), std::string::npos);
    EXPECT_EQ(f.mod(id, "-3|1001 ONE"), ErrNo::none);
    EXPECT_EQ(f.mod(id, "-3|1001 TWO"), ErrNo::none);
    EXPECT_EQ(f.record(id).extras(), nullptr);
    for (const std::string_view bad :
         {"-3|1000 x", "-3|1001 ONE|1002 {", "-3|1001 ONE|1002 }|1002 {",
          "-3|1001 ONE|1000 a|1001 ONE|1000 b", "-3|1001 ONE|8 x"})
        EXPECT_EQ(f.mod(id, bad), ErrNo::badXdata) << bad;
    std::string large = "-3|1001 ONE";
    for (int i = 0; i < 100; ++i) large += "|1000 " + std::string(200, 'x');
    EXPECT_EQ(f.mod(id, large), ErrNo::xdataTooBig);
}
