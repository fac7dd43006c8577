// SPDX-License-Identifier: LicenseRef-ORVALD
// What is read is written as it came.
#include "dxf_support.h"

#include "drawing/entity_functions.h"
#include "drawing/text.h"

using namespace orvald;
using namespace orvald::dxf;

namespace {

/// Loads the text, saves it, and expects it back byte by byte (but for the handle seed).
void expectKept(const std::string& text)
{
    const Loaded loaded = loadText(text);
    ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
    for (const Warning& warning : loaded.warnings)
        ADD_FAILURE() << warning.line << " " << warning.text;
    std::istringstream before(text), after(saveText(*loaded.drawing));
    std::string expected, line;
    for (int number = 1; std::getline(before, expected); ++number) {
        ASSERT_TRUE(std::getline(after, line)) << number;
        if (expected == "$HANDSEED") {
            for (int skip = 0; skip < 2; ++skip) {
                std::getline(before, expected);
                std::getline(after, line);
            }
            continue;
        }
        ASSERT_EQ(line, expected) << "line " << number;
    }
    EXPECT_FALSE(std::getline(after, line)) << line;
}

} // namespace

TEST(RoundTrip, ANewDrawingComesBackWholeAndIsInOrder)
{
    expectKept(newText());
    TemporaryFolder folder;
    const auto drawing = drawing::Drawing::createNew();
    EXPECT_EQ(drawing->header.integer("$INSUNITS"), 4);
    EXPECT_EQ(drawing->header.integer("$MEASUREMENT"), 1);
    EXPECT_EQ(drawing->layoutName(drawing->paperSpace()), "Layout1");
    const Saved saved = save(*drawing, folder.file("new.dxf"));
    EXPECT_TRUE(saved.good) << saved.error.message();
    expectAudited(folder.file("new.dxf"));
}

TEST(RoundTrip, FilesOfEveryVersionComeBackRecordByRecord)
{
    TemporaryFolder folder;
    for (const std::string& version : sampleVersions()) {
        SCOPED_TRACE(version);
        const Loaded loaded = load(samplePath(version));
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        for (const Warning& warning : loaded.warnings) ADD_FAILURE() << warning.text;
        const std::string target = folder.file(version + ".dxf");
        const Saved saved = save(*loaded.drawing, target); // compares every record
        ASSERT_TRUE(saved.good) << saved.error.message();
        expectAudited(target);
        expectKept(readFile(target));
        // No handle of the original is lost.
        std::istringstream original(readFile(samplePath(version)));
        std::size_t handles = 0;
        std::string code, value;
        bool inRecords = false;
        while (std::getline(original, code) && std::getline(original, value)) {
            inRecords = inRecords || value == "TABLES";
            if (!inRecords || (code != "  5" && code != "105")) continue;
            ++handles;
            ASSERT_NE(loaded.drawing->byHandle(std::stoull(value, nullptr, 16)), drawing::kNone)
                << value;
        }
        EXPECT_GT(handles, 150u);
    }
}

TEST(RoundTrip, WhatNobodyHereKnowsIsKeptAsItCame)
{
    const std::string proxy = groups(
        "0 ACAD_PROXY_ENTITY|5 A01|330 1F|100 AcDbEntity|8 0|100 AcDbProxyEntity|90       498|"
        "91       510|95        29|70      0|160         4|310 01020304|162         0|161        "
        "12|310 FFEE|340 2|94         0");
    const std::string custom = groups(
        "0 MY_ENTITY|5 A02|102 {ACAD_XDICTIONARY|360 A03|102 }|102 {ACAD_REACTORS|330 DEAD|330 "
        "C|102 }|"
        "102 {MY_APP|330 10|1 hers|102 }|330 1F|100 AcDbEntity|8 0|100 MyEntity|10 1.5|20 2.5|"
        "12 1.0|22 0.5|32 -0.0|43 0.1|290      1|70 -32768|90 -2147483648|160 "
        "4611686018427387904|"
        "1   leading and trailing  |1|1 ^ ^J\\U+00B0 äöü|310|350 A05|1001 ACAD|1000 x|1040 "
        "1.0E-300|1005 A02|"
        "1070      5|1010 1.0|1020 2.0|1030 3.0|1002 {|1002 }|1004 00FF");
    const std::string objects = groups(
        "0 DICTIONARY|5 A03|102 {ACAD_REACTORS|330 A02|102 }|330 A02|100 AcDbDictionary|280      "
        "1|281      1|"
        "3 zulu|360 A04|3 Alpha|360 A05|"
        "0 XRECORD|5 A04|330 A03|100 AcDbXrecord|280      1|1 text|10 1.0|20 2.0|30 3.0|112 "
        "1.0|122 2.0|"
        "132 3.0|1001 in the middle|40 1.0|370     -3|420       255|460 0.1|1004 AB|1070      "
        "1|1071         1|102 {any "
        "text|330 A04|"
        "320 999|5 A04|1001 ACAD|1000 its own|1010 1.0|1020 2.0|1030 3.0|"
        "0 MY_OBJECT|5 A05|102 {ACAD_REACTORS|330 A03|102 }|330 A03|100 MyObject|40 "
        "123456789.123456|"
        "41 1.7976931348623157E+308|42 0.30000000000000004|43 1.0E+20|44 100000.0|45 0.00001234");
    std::string text = newText();
    text = intoSection(text, "CLASSES",
                       groups("0 CLASS|1 MY_ENTITY|2 MyEntity|3 \"Her App\"|90      1024|91        "
                              " 1|280      0|281      1"));
    text = intoSection(text, "ENTITIES", proxy + custom);
    text = intoSection(text, "OBJECTS", objects);
    const std::string raw =
        groups("0 SECTION|2 ACDSDATA|70      2|71      6|0 ACDSRECORD|90         1|2 "
               "AcDbDs::ID|280     10|"
               "320 A01|2 ASM_Data|280     15|94         3|310 41424344|0 ENDSEC");
    text = replaced(text, "  0\nEOF\n", raw + "  0\nEOF\n");
    expectKept(text);
    // Extended data of an xrecord is what ends it.
    const Loaded loaded = loadText(text);
    const drawing::Record& record = loaded.drawing->at(loaded.drawing->byHandle(0xA04));
    EXPECT_EQ(record.extras()->xdata.text(1000), "its own");
    EXPECT_EQ(record.tags.text(1001), "in the middle");
}

TEST(RoundTrip, BlocksLayoutsAndComplexEntitiesKeepTheirPlaces)
{
    auto drawing = drawing::Drawing::createNew();
    std::string text = saveText(*drawing);
    text = replaced(text, groups("0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS"),
                    groups("0 BLOCK_RECORD|5 B1|330 1|100 AcDbSymbolTableRecord|100 "
                           "AcDbBlockTableRecord|2 Teil|340 0|"
                           "0 BLOCK_RECORD|5 B2|330 1|100 AcDbSymbolTableRecord|100 "
                           "AcDbBlockTableRecord|2 *Paper_Space0|340 0|"
                           "0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS"));
    text = replaced(text, groups("100 AcDbSymbolTable|70      2|0 BLOCK_RECORD"),
                    groups("100 AcDbSymbolTable|70      4|0 BLOCK_RECORD"));
    text = intoSection(
        text, "BLOCKS",
        groups(
            "0 BLOCK|5 B3|330 B1|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 Teil|70      2|10 0.0|20 "
            "0.0|30 0.0|3 Teil|1|"
            "0 INSERT|5 B4|330 B1|100 AcDbEntity|8 0|100 AcDbBlockReference|66      1|2 Teil2|10 "
            "0.0|20 0.0|30 0.0|"
            "0 ATTRIB|5 B5|330 B4|100 AcDbEntity|8 0|100 AcDbText|10 0.0|20 0.0|30 0.0|40 1.0|1 "
            "x|100 AcDbAttribute|2 T|70      0|"
            "0 SEQEND|5 B6|330 B4|100 AcDbEntity|8 0|"
            "0 ENDBLK|5 B7|330 B1|100 AcDbEntity|8 0|100 AcDbBlockEnd|"
            "0 BLOCK|5 B8|330 B2|100 AcDbEntity|67      1|8 0|100 AcDbBlockBegin|2 "
            "*Paper_Space0|70      0|10 0.0|20 0.0|30 0.0|3 *Paper_Space0|1|"
            "0 POINT|5 B9|330 B2|100 AcDbEntity|67      1|8 0|100 AcDbPoint|10 0.0|20 0.0|30 0.0|"
            "0 ENDBLK|5 BA|330 B2|100 AcDbEntity|67      1|8 0|100 AcDbBlockEnd"));
    text = intoSection(
        text, "ENTITIES",
        groups(
            "0 POLYLINE|5 BB|330 1F|100 AcDbEntity|8 0|100 AcDb2dPolyline|66      1|10 0.0|20 "
            "0.0|30 0.0|"
            "0 VERTEX|5 BC|330 BB|100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb2dVertex|10 0.0|20 "
            "0.0|30 0.0|"
            "0 SEQEND|5 BD|330 BB|100 AcDbEntity|8 0|"
            "0 POINT|5 BE|330 1B|100 AcDbEntity|67      1|8 0|100 AcDbPoint|10 0.0|20 0.0|30 0.0"));
    expectKept(text);
}

TEST(RoundTrip, LineEndsMarkAndCommentsDoNotMatter)
{
    const std::string text = newText();
    std::string crlf = "\xEF\xBB\xBF";
    for (const char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    crlf = replaced(crlf, "  0\r\nSECTION\r\n",
                    "999\r\nby hand\r\n  0\r\nSECTION\r\n999\r\nagain\r\n");
    const Loaded loaded = loadText(crlf);
    ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
    EXPECT_EQ(saveText(*loaded.drawing), text);
    std::string unpadded = text, noEnd = text.substr(0, text.size() - 1);
    EXPECT_NE(loadText(noEnd).drawing, nullptr);
}

TEST(RoundTrip, ErasedAndLooseObjectsStayBehind)
{
    auto drawing = drawing::Drawing::createNew();
    drawing::EntityFunctions functions(*drawing);
    const std::string before = saveText(*drawing);
    const auto make = [&](resbuf* chain) {
        drawing::EntityFunctions::Made made;
        EXPECT_EQ(functions.entMake(chain, made), drawing::ErrNo::none);
        acutRelRb(chain);
        return made.id;
    };
    const ads_point origin{0, 0, 0};
    const drawing::ObjectId point = make(acutBuildList(RTDXF0, u"POINT", 10, origin, 0));
    const drawing::Index extension = drawing->needExtensionDictionary(drawing->indexOf(point));
    const drawing::ObjectId hung =
        make(acutBuildList(RTDXF0, u"XRECORD", 100, u"AcDbXrecord", 1, u"x", 0));
    drawing->addToDictionary(extension, "X", drawing->indexOf(hung));
    const drawing::ObjectId loose =
        make(acutBuildList(RTDXF0, u"XRECORD", 100, u"AcDbXrecord", 1, u"loose", 0));
    // A pointer at what stays behind becomes null.
    ads_name name, looseName;
    toName(point, name);
    toName(loose, looseName);
    const drawing::ObjectId pointing =
        make(acutBuildList(RTDXF0, u"XRECORD", 100, u"AcDbXrecord", 340, name, 341, looseName, 0));
    functions.dictAdd(functions.namedObjDict(), u"POINTING", pointing);
    functions.entDel(point);
    TemporaryFolder folder;
    EXPECT_TRUE(save(*drawing, folder.file("a.dxf")).good);
    const Loaded loaded = load(folder.file("a.dxf"));
    ASSERT_NE(loaded.drawing, nullptr);
    EXPECT_TRUE(loaded.warnings.empty());
    const drawing::Index found =
        loaded.drawing->dictionaryEntry(loaded.drawing->rootDictionary(), "POINTING");
    ASSERT_NE(found, drawing::kNone);
    EXPECT_EQ(loaded.drawing->at(found).tags.handle(340, 7), 0u);
    EXPECT_EQ(loaded.drawing->at(found).tags.handle(341, 7), 0u);
    EXPECT_EQ(loaded.drawing->byHandle(drawing->find(point)->handle), drawing::kNone);
    EXPECT_EQ(loaded.drawing->byHandle(drawing->find(hung)->handle), drawing::kNone);
    functions.entDel(point); // and back: nothing was lost
    EXPECT_TRUE(save(*drawing, folder.file("b.dxf")).good);
    EXPECT_NE(load(folder.file("b.dxf")).drawing->byHandle(drawing->find(hung)->handle),
              drawing::kNone);
}
