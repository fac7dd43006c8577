// SPDX-License-Identifier: LicenseRef-ORVALD
// Damaged files: an error that names the place, or a drawing that is whole; never anything else.
#include "dxf_support.h"

#include "drawing/views.h"
#include "dxf/audit.h"

#include <chrono>
#include <random>

using namespace orvald;
using namespace orvald::dxf;

namespace {

/// What was loaded must save, load again and be the same.
void expectSound(const Loaded& loaded)
{
    if (loaded.drawing == nullptr) {
        EXPECT_FALSE(loaded.error.reason.empty());
        EXPECT_EQ(loaded.error.message().find('\n'), std::string::npos);
        return;
    }
    const std::string once = saveText(*loaded.drawing);
    const Loaded again = loadText(once);
    ASSERT_NE(again.drawing, nullptr) << again.error.message();
    ASSERT_EQ(saveText(*again.drawing), once);
    for (const drawing::Index space : {loaded.drawing->modelSpace(), loaded.drawing->paperSpace()})
        drawing::blockExtents(*loaded.drawing, space);
}

std::string entity(std::string_view text)
{
    return intoSection(newText(), "ENTITIES", groups(text));
}
std::string object(std::string_view text)
{
    return intoSection(newText(), "OBJECTS", groups(text));
}
constexpr std::string_view kLine =
    "0 LINE|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 7.25|21 0.0|31 0.0";

} // namespace

TEST(Damage, AFileThatIsCutOffIsRefused)
{
    const std::string text = readFile(samplePath("R2013"));
    for (std::size_t size = 0; size + 4 < text.size(); size += 997) {
        const Loaded loaded = loadText(std::string_view(text).substr(0, size), "plan.dxf");
        ASSERT_EQ(loaded.drawing, nullptr) << size;
        if (size != 0) {
            EXPECT_NE(loaded.error.line, 0u) << size;
        }
        EXPECT_TRUE(loaded.error.message().starts_with("plan.dxf: ")) << loaded.error.message();
    }
    // Between any two lines, too: none of the records, tables and sections ends by itself.
    const std::string small = newText();
    for (std::size_t end = small.find('\n'); end + 5 < small.size();
         end = small.find('\n', end + 1))
        ASSERT_EQ(loadText(std::string_view(small).substr(0, end + 1)).drawing, nullptr) << end;
}

TEST(Damage, WhatCannotBeUnderstoodIsRefusedWithItsPlace)
{
    struct Case
    {
        std::string text;
        std::string_view reason;
    };
    const std::string good = newText();
    const std::string line = entity(kLine);
    const Case cases[] = {
        {"", "the file is empty"},
        {"hello\nworld\n", "is no group code"},
        {"AutoCAD Binary DXF\r\n\x1A", "is no group code"},
        {std::string("AutoCAD Binary DXF\r\n\x1A\0\0\0SECTION\0\x96\0", 34), "is no group code"},
        {replaced(good, "  0\nEOF\n", ""), "the file ends too early"},
        {replaced(good, "AC1027", "AC1003"), "is not read"},
        {replaced(good, groups("0 ENDSEC|0 SECTION|2 CLASSES"), groups("0 SECTION|2 CLASSES")),
         "HEADER has no ENDSEC"},
        {replaced(good, groups("0 ENDSEC|0 SECTION|2 OBJECTS"), groups("0 SECTION|2 OBJECTS")),
         "no ENDSEC"},
        {replaced(good, groups("0 ENDTAB|0 TABLE|2 LAYER"), groups("0 TABLE|2 LAYER")),
         "no ENDTAB"},
        {replaced(line, groups("11 7.25"), groups("11 1,5")), "is no number"},
        {replaced(line, groups("11 7.25"), groups("11")), "is no number"},
        {replaced(line, groups("11 7.25"), groups("11 1e999")), "is not finite"},
        {replaced(line, groups("11 7.25"), groups("11 nan")), "is not finite"},
        {replaced(line, groups("11 7.25"), groups("62 99999")), "out of range"},
        {replaced(line, groups("11 7.25"), groups("62 1.5")), "is no whole number"},
        {replaced(line, groups("11 7.25"), groups("90 99999999999999999999")), "out of range"},
        {replaced(line, groups("5 A1"), groups("5 XY")), "is no handle"},
        {replaced(line, groups("5 A1"), groups("5 11111111111111111")), "is no handle"},
        {replaced(line, groups("5 A1"), groups("5 FFFFFFFFFFFFFFFF")), "is no handle"},
        {replaced(line, groups("5 A1"), groups("5 1F")), "in use already"},
        {replaced(line, groups("8 0|100 AcDbLine"), groups("330|100 AcDbLine")), "is no handle"},
        {replaced(line, groups("8 0|100 AcDbLine"), groups("-5 0|100 AcDbLine")), "below 0"},
        {replaced(line, groups("8 0|100 AcDbLine"), groups("9999 0|100 AcDbLine")),
         "is no group code"},
        {entity("0 VERTEX|5 A1|330 1F|10 0.0"), "stands alone"},
        {entity("0 SEQEND|5 A1|330 1F"), "stands alone"},
        {entity("0 BLOCK|5 A1|2 X"), "does not belong"},
        {entity("0 DICTIONARY|5 A1|330 1F|100 AcDbDictionary"), "does not belong"},
        {entity("0 LAYER|5 A1|330 1F|2 X"), "does not belong"},
        {object("0 LINE|5 A1|330 C|100 AcDbEntity|8 0"), "does not belong"},
        {intoSection(good, "BLOCKS", groups("0 LINE|5 A1")), "between the blocks"},
        {intoSection(good, "BLOCKS", groups("0 ENDBLK|5 A1")), "no block is open"},
        {intoSection(good, "BLOCKS", groups("0 BLOCK|5 A1|2 X|70 0")), "no ENDBLK"},
        {intoSection(good, "BLOCKS", groups("0 BLOCK|5 A1|330 1F|2 *Model_Space|0 ENDBLK|5 A2")),
         "second definition"},
        {object("0 DICTIONARY|5 A1|330 C|100 AcDbDictionary|3 one|3 two|350 A1"),
         "names no object"},
        {replaced(good, groups("0 ENDTAB|0 TABLE|2 STYLE"),
                  groups("0 LAYER|5 A1|330 2|0 LAYER|5 A2|330 2|0 ENDTAB|0 TABLE|2 STYLE")),
         "has no name"},
        {replaced(good, groups("0 TABLE|2 LAYER"), groups("0 TABLE|2 NOSUCH")), "is no table"}};
    for (const Case& c : cases) {
        const Loaded loaded = loadText(c.text);
        EXPECT_EQ(loaded.drawing, nullptr) << c.reason;
        EXPECT_NE(loaded.error.message().find(c.reason), std::string::npos)
            << loaded.error.message() << " / " << c.reason;
        EXPECT_TRUE(c.text.empty() || loaded.error.line != 0) << c.reason;
    }
    const Loaded loaded = loadText(replaced(line, groups("11 7.25"), groups("62 1.5")));
    EXPECT_EQ(loaded.error.group, 62);
    EXPECT_EQ(loaded.error.handle, 0xA1u);
    EXPECT_TRUE(loaded.error.message().ends_with(")")) << loaded.error.message();
}

TEST(Damage, WhatCanBeMendedIsMendedAndTold)
{
    struct Case
    {
        std::string text;
        std::string_view warning;
    };
    const std::string good = newText();
    const auto intoTable = [&](const std::string& table, const std::string& record) {
        const std::size_t start = good.find(groups("0 TABLE|2 " + table));
        return std::string(good).insert(good.find(groups("0 ENDTAB"), start), groups(record));
    };
    const Case cases[] = {
        {entity("0 LINE|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 0.0|30 0.0"),
         "without a handle"},
        {entity("0 LINE|5 0|330 1F|100 AcDbEntity|8 0"), "without a handle"},
        {entity("0 LINE|5 A1|330 DEAD|100 AcDbEntity|8 0"), "owned by nothing"},
        {entity("0 LINE|5 A1|330 C|100 AcDbEntity|8 0"), "owned by nothing"},
        {entity(
             "0 POLYLINE|5 A1|330 1F|66 1|0 VERTEX|5 A2|10 1.0|20 2.0|30 0.0|0 LINE|5 A3|330 1F"),
         "no SEQEND"},
        {entity("0 INSERT|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|2 X|10 0.0|20 "
                "0.0|30 0.0|0 ATTRIB|5 A2|330 A1|0 SEQEND|5 A3"),
         "did not announce"},
        {intoSection(good, "BLOCKS",
                     groups("0 BLOCK|5 A1|2 X|70 0|0 LINE|5 A2|330 1F|0 ENDBLK|5 A3")),
         "no BLOCK_RECORD"},
        {object("0 DICTIONARY|5 A1|330 C|100 AcDbDictionary|3 one|350 DEAD"), "names no object"},
        {object("0 DICTIONARY|5 A1|330 C|100 AcDbDictionary|3 self|350 A1"), "names no object"},
        {object("0 DICTIONARY|5 A1|330 C|100 AcDbDictionary|3 k|350 D|3 K|350 D"), "second entry"},
        {object("0 XRECORD|5 A1|330 DEAD|100 AcDbXrecord|280 1"), "had no owner"},
        {object("0 XRECORD|5 A1|100 AcDbXrecord|280 1"), "had no owner"},
        {object("0 XRECORD|5 A1|102 {ACAD_XDICTIONARY|360 DEAD|102 }|330 C|100 AcDbXrecord"),
         "is missing"},
        {object("0 XRECORD|5 A1|102 {ACAD_XDICTIONARY|360 F|102 }|330 C|100 AcDbXrecord"),
         "is none"},
        {object("0 XRECORD|5 A1|102 {ACAD_XDICTIONARY|360 D|102 }|330 C|100 AcDbXrecord"),
         "did not name its owner"},
        {replaced(
             good, groups("0 ENDTAB|0 TABLE|2 STYLE"),
             groups(
                 "0 LAYER|5 A1|330 2|2 Zwei|0 LAYER|5 A2|330 2|2 ZWEI|0 ENDTAB|0 TABLE|2 STYLE")),
         "is renamed"},
        {entity("0 NEW|5 A1|102 {APP|330 1F|100 AcDbEntity|8 0"), "not closed"},
        {object("0 DICTIONARY|5 A1|330 C"), "no subclass marker"},
        {object("0 DICTIONARY|5 A1|330 C|3 one|350 A2|0 XRECORD|5 A2|330 A1|100 AcDbXrecord"),
         "no subclass marker"},
        {good + "more\n", "after the end"},
        {replaced(good, "$ACADVER", "$OTHER"), "read as R12"},
        {intoTable("DIMSTYLE", "0 DIMSTYLE|105 A1|330 A|100 AcDbSymbolTableRecord|100 "
                               "AcDbDimStyleTableRecord|2 X|70 0|340 Standard|341"),
         "names stood where handles belong"},
        {intoTable("LAYER",
                   "0 LAYER|5 A1|330 2|2 X|70 0|62 1|6 Continuous|370 0|390 DEAD|347 DEAD"),
         "2 plot styles and materials"},
        {intoTable("VPORT", "0 VPORT|5 A1|330 8|2 X|70 0|348 DEAD"), "do not exist"},
        {entity("0 CIRCLE|5 A1|330 1F|100 AcDbEntity|8 0|210 0.0|220 0.0|230 0.0"),
         "normals of no length"},
        {entity("0 POINT|5 A1|330 1F|100 AcDbEntity|62 1|10 0.0|20 0.0"), "without a layer"},
        {entity("0 NEW|5 A1|330 1F|100 AcDbEntity|8 0|150 what"), "do not exist"},
        {entity("0 NEW|5 A1|330 1F|100 AcDbEntity|8 0|310 no hex"), "not hexadecimal"}};
    for (const Case& c : cases) {
        const Loaded loaded = loadText(c.text);
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message() << " / " << c.warning;
        bool told = false;
        for (const Warning& warning : loaded.warnings)
            told = told || warning.text.find(c.warning) != std::string::npos;
        EXPECT_TRUE(told) << c.warning;
        expectSound(loaded);
        EXPECT_TRUE(loadText(saveText(*loaded.drawing)).warnings.empty() ||
                    c.warning == "do not exist" || c.warning == "not hexadecimal")
            << c.warning;
    }
}

TEST(Damage, WhatBreaksReadersEndsWithItsLineOrIsMended)
{
    struct Case
    {
        std::string_view name;
        std::string text;
        std::string_view told; // of the refusal or a warning; "" when there is nothing wrong
        bool refused = false;
    };
    const std::string good = newText();
    const std::string line = entity(kLine);
    const std::string bom = "\xEF\xBB\xBF";
    const auto without = [&](std::string_view section) {
        const std::size_t at = good.find(groups("0 SECTION|2 " + std::string(section)));
        return std::string(good).erase(at, good.find("  0\nENDSEC\n", at) + 11 - at);
    };
    const auto withoutTable = [&](std::string_view table) {
        const std::size_t at = good.find(groups("0 TABLE|2 " + std::string(table)));
        return std::string(good).erase(at, good.find("  0\nENDTAB\n", at) + 11 - at);
    };
    const std::string xrecord = "0 XRECORD|5 A1|330 C|100 AcDbXrecord|280 1|";
    const std::string block = "0 BLOCK|5 A2|330 A1|8 0|2 B|70 0|10 0.0|20 0.0|30 0.0|3 B|1|";
    const Case cases[] = {
        // Groups where their record has none, and data on records that have none.
        {"points first", entity("0 LWPOLYLINE|5 A1|330 1F|8 0|10 1.0|20 2.0|42 1.0|90 3"), ""},
        {"no container", entity("0 VERTEX|5 A1|330 1F|42 1.0|10 1.0"), "stands alone", true},
        {"edge without path",
         entity("0 HATCH|5 A1|330 1F|8 0|100 AcDbHatch|93 4|72 3|10 1.0|73 1|94 5"), ""},
        {"xdata on a head",
         replaced(good, groups("0 ENDTAB|0 TABLE|2 LAYER"),
                  groups("1001 ACAD|1070 1|0 ENDTAB|0 TABLE|2 LAYER")),
         ""},
        {"xdata on a class",
         replaced(good, groups("0 ENDSEC|0 SECTION|2 TABLES"),
                  groups("0 CLASS|1 X|2 Y|3 Z|90 0|91 0|280 0|281 0|1001 ACAD|1000 x|"
                         "0 ENDSEC|0 SECTION|2 TABLES")),
         ""},
        {"long binary",
         entity("0 POINT|5 A1|330 1F|8 0|1001 ACAD|1004 " + std::string(100000, 'A')), ""},
        {"odd binary", entity("0 POINT|5 A1|330 1F|8 0|1001 ACAD|1004 ABC"), "not hexadecimal"},
        {"xdata alone", entity("0 POINT|5 A1|330 1F|8 0|1000 x|1002 }|1070 5"), ""},
        // Numbers.
        {"a blank exponent", replaced(line, "7.25", "1.000000E 20"), "is no number", true},
        {"no number", replaced(line, "7.25", ""), "is no number", true},
        {"two dots", replaced(line, "7.25", "1.2.3"), "is no number", true},
        {"hexadecimal", replaced(line, "7.25", "0x10"), "is no number", true},
        {"infinite angle", entity("0 ARC|5 A1|330 1F|8 0|50 inf"), "is not finite", true},
        {"huge angle",
         entity("0 ARC|5 A1|330 1F|8 0|100 AcDbCircle|10 0.0|20 0.0|40 1.0|100 AcDbArc|50 1e308|51 "
                "-1e308"),
         ""},
        // Circles of references.
        {"block in itself",
         intoSection(good, "BLOCKS",
                     groups(block + "0 INSERT|5 A3|330 A1|8 0|2 B|10 1.0|20 0.0|0 ENDBLK|5 A4")),
         "no BLOCK_RECORD"},
        {"owners in a circle",
         object(xrecord +
                "1 x|0 XRECORD|5 A2|330 A3|100 AcDbXrecord|0 XRECORD|5 A3|330 A2|100 AcDbXrecord"),
         ""},
        {"own owner", object("0 XRECORD|5 A1|330 A1|100 AcDbXrecord"), ""},
        {"own dictionary",
         object("0 DICTIONARY|5 A1|102 {ACAD_XDICTIONARY|360 A1|102 }|330 A1|100 AcDbDictionary"),
         ""},
        // Handles.
        {"above the seed", entity("0 POINT|5 FFFFFF|330 1F|8 0|10 0.0|20 0.0"), ""},
        {"largest", entity("0 POINT|5 FFFFFFFFFFFFFFFE|330 1F|8 0|10 0.0|20 0.0"), "is no handle",
         true},
        {"shared extension",
         object("0 XRECORD|5 A1|102 {ACAD_XDICTIONARY|360 A3|102 }|330 C|100 AcDbXrecord|0 "
                "XRECORD|5 A2|"
                "102 {ACAD_XDICTIONARY|360 A3|102 }|330 C|100 AcDbXrecord|0 DICTIONARY|5 A3|330 "
                "A1|100 AcDbDictionary"),
         "belongs to another"},
        {"entry of another",
         object("0 DICTIONARY|5 A1|330 C|100 AcDbDictionary|3 one|350 A2|0 XRECORD|5 A2|330 D|100 "
                "AcDbXrecord"),
         "something else than its dictionary"},
        // Missing parts.
        {"no header", without("HEADER"), "read as R12"},
        {"no objects", without("OBJECTS"), "no root dictionary"},
        {"no tables", without("TABLES"), "is missing"},
        {"no blocks", without("BLOCKS"), "has no definition"},
        {"no layers", withoutTable("LAYER"), "table LAYER is missing"},
        {"no block records", withoutTable("BLOCK_RECORD"), "no BLOCK_RECORD"},
        {"nameless block",
         intoSection(good, "BLOCKS", groups("0 BLOCK|5 A1|8 0|2|70 0|0 ENDBLK|5 A2")),
         "no BLOCK_RECORD"},
        {"block without a name",
         intoSection(good, "BLOCKS", groups("0 BLOCK|5 A1|8 0|70 0|0 ENDBLK|5 A2")),
         "no BLOCK_RECORD"},
        {"root not first",
         replaced(good, groups("2 OBJECTS"),
                  groups("2 OBJECTS|0 XRECORD|5 A1|330 C|100 AcDbXrecord|280 1")),
         ""},
        // Texts.
        {"byte order mark", bom + good, "byte order mark"},
        {"NUL",
         replaced(line, groups("8 0|100 AcDbLine"), std::string("  8\n\0\n100\nAcDbLine\n", 19)),
         ""},
        {"raw line end",
         replaced(line, groups("8 0|100 AcDbLine"), groups("8 zwei\nZeilen|100 AcDbLine")),
         "is no group code", true},
        {"bytes in an xrecord", object(xrecord + "1 \xFF\xFE\x80|300 \xC3"), "not in UTF-8"},
        // What good files have.
        {"comments",
         replaced(line, groups("8 0|100 AcDbLine"), groups("999 why|8 0|999|100 AcDbLine")), ""},
        {"67 on ENDBLK",
         intoSection(good, "BLOCKS", groups(block + "0 ENDBLK|5 A4|330 1F|67 1|8 0")),
         "no BLOCK_RECORD"},
        {"MTEXT with a rotation",
         entity("0 MTEXT|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbMText|10 0.0|20 0.0|40 1.0|1 x|50 "
                "90.0"),
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Loaded loaded = loadText(c.text);
        auditText(c.text);
        expectSound(loaded);
        EXPECT_EQ(loaded.drawing == nullptr, c.refused) << loaded.error.message();
        std::string told = loaded.error.message();
        for (const Warning& warning : loaded.warnings) told += "\n" + warning.text;
        EXPECT_NE(told.find(c.told), std::string::npos) << told;
        EXPECT_EQ(loaded.warnings.empty() && !c.refused, c.told.empty()) << told;
        EXPECT_TRUE(!c.refused || loaded.error.line != 0) << told;
    }
}

TEST(Damage, CountsThatLieAndGroupsOutOfPlaceDoNoHarm)
{
    for (const std::string_view count : {"-1", "2147483647", "1000000", "0"}) {
        const std::string n(count);
        for (const std::string& text :
             {entity("0 LWPOLYLINE|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbPolyline|90 " + n +
                     "|42 1.0|70 1|10 1.0|20 2.0"),
              entity(
                  "0 HATCH|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbHatch|10 0.0|20 0.0|30 0.0|93 " +
                  n + "|72 1|10 1.0|20 1.0|91 " + n + "|92 2|93 " + n +
                  "|42 1.0|10 1.0|20 1.0|92 1|93 " + n + "|50 1.0|72 4|94 " + n + "|95 " + n +
                  "|40 1.0|72 9|10 1.0|75 0|49 1.0|98 " + n),
              entity("0 INSERT|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|2 "
                     "*Model_Space|10 1.0|20 0.0|30 0.0|70 " +
                     std::string(n.size() > 5 ? "32767" : n) + "|71 32767|44 1.0|45 1.0")}) {
            const Loaded loaded = loadText(text);
            ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
            expectSound(loaded);
        }
    }
}

TEST(Damage, RubbishInTextBecomesTextThatFilesCanHold)
{
    const std::string text =
        replaced(entity("0 TEXT|5 A1|330 1F|100 AcDbEntity|8 0|1 @@"), "@@",
                 std::string("a\0b\rc\x01 \xED\xA0\x80 \xFF \xF0\x9F\x98\x80", 17));
    const Loaded loaded = loadText(text);
    ASSERT_NE(loaded.drawing, nullptr);
    EXPECT_EQ(loaded.drawing->at(loaded.drawing->byHandle(0xA1)).tags.text(1),
              "a^@b^Mc^A \\U+D800 ÿ \U0001F600");
    expectSound(loaded);
}

TEST(Damage, LongLinesManyTagsAndDeepNestsTakeLinearTime)
{
    const auto start = std::chrono::steady_clock::now();
    expectSound(
        loadText(entity("0 TEXT|5 A1|330 1F|100 AcDbEntity|8 0|1 " + std::string(3000000, 'x'))));
    std::string nest = "0 POINT|5 A1|330 1F|100 AcDbEntity|8 0|1001 ACAD";
    for (int i = 0; i < 10000; ++i) nest += "|1002 {";
    expectSound(loadText(entity(nest)));
    std::string dictionaries;
    for (int i = 0; i < 3000; ++i) {
        char text[160];
        std::snprintf(text, sizeof text,
                      "0 DICTIONARY|5 %X|330 %X|100 AcDbDictionary|281 1|3 in|350 %X|", 0x1000 + i,
                      i == 0 ? 0xC : 0xFFF + i,
                      i == 2999 ? 0x1000 : 0x1001 + i); // the last one closes a circle
        dictionaries += text;
    }
    dictionaries.pop_back();
    expectSound(loadText(object(dictionaries)));
    // Many of what is looked up among its like: names, keys, handles, sections, groups.
    const std::string good = newText();
    const auto many = [](std::string_view first, auto next) {
        std::string text(first);
        for (int i = 0; i < 70000; ++i) text += next(std::to_string(100000 - i));
        return text;
    };
    const auto same = [](std::string text) {
        return [text = groups(text)](const std::string&) { return text; };
    };
    const std::string dictionary = groups("0 DICTIONARY|5 A1|330 C|100 AcDbDictionary");
    const std::string point = groups("0 POINT|5 A1|330 1F");
    for (const std::string& text :
         {intoSection(good, "ENTITIES", many(groups("0 NEW|5 A1|330 1F"), same("100 M"))),
          replaced(good, groups("0 ENDTAB|0 TABLE|2 STYLE"),
                   many("", same("0 LAYER|2 X")) + groups("0 ENDTAB|0 TABLE|2 STYLE")),
          intoSection(good, "OBJECTS",
                      many(dictionary, [](auto i) { return "3\nK" + i + "\n350\nD\n"; })),
          intoSection(good, "OBJECTS",
                      many(dictionary, [](auto i) { return "3\nK" + i + "\n350\nDEAD\n"; })),
          intoSection(good, "ENTITIES",
                      many(point + groups("102 {ACAD_REACTORS"),
                           [](auto i) { return "330\n" + i + "\n"; })),
          replaced(good, groups("0 EOF"),
                   many("", [](auto i) { return "0\nSECTION\n2\nS" + i + "\n0\nENDSEC\n"; }) +
                       groups("0 EOF")),
          intoSection(replaced(good, "AC1027", "AC1015"), "ENTITIES",
                      many(point + groups("100 AcDbEntity|310 00"), same("92 1")))}) {
        auditText(text);
        expectSound(loadText(text));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Damage, RandomChangesNeverBreakTheReader)
{
    std::mt19937 random(20260101);
    for (const char* version : {"R2000", "R2018"}) {
        const std::string text = readFile(samplePath(version));
        std::vector<std::string> lines;
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        for (int round = 0; round < 400; ++round) {
            std::vector<std::string> changed = lines;
            for (int changes = 1 + static_cast<int>(random() % 3); changes != 0; --changes) {
                const std::size_t at = random() % changed.size(), other = random() % changed.size();
                switch (random() % 6) {
                case 0: changed[at] = changed[other]; break;
                case 1: changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(at)); break;
                case 2:
                    changed.insert(changed.begin() + static_cast<std::ptrdiff_t>(at),
                                   changed[other]);
                    break;
                case 3: // a whole group goes
                    if (at + 1 < changed.size())
                        changed.erase(changed.begin() +
                                          static_cast<std::ptrdiff_t>(at & ~std::size_t{1}),
                                      changed.begin() +
                                          static_cast<std::ptrdiff_t>((at & ~std::size_t{1}) + 2));
                    break;
                case 4: changed[at | 1] = changed[other | 1]; break; // another value
                default:
                    if (!changed[at].empty())
                        changed[at][random() % changed[at].size()] = static_cast<char>(random());
                    break;
                }
            }
            std::string damaged;
            for (const std::string& line : changed) damaged += line + "\n";
            expectSound(loadText(damaged));
            auditText(damaged);
            if (testing::Test::HasFailure()) {
                writeFile("/tmp/orvald_damaged.dxf", damaged);
                return;
            }
        }
    }
}
