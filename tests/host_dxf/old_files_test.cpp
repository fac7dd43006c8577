// SPDX-License-Identifier: LicenseRef-ORVALD
// Files of versions before R2000, binary files, and texts in code pages.
#include "dxf_support.h"

#include "drawing/text.h"
#include "dxf/audit.h"

#include <bit>
#include <cstring>

using namespace orvald;
using namespace orvald::dxf;
using drawing::Index;
using drawing::Kind;
using drawing::TableId;

namespace {

/// What AutoCAD R12 writes of a small drawing without handles.
const std::string& oldText()
{
    static const std::string text = groups(
        "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $DWGCODEPAGE|3 dos850|9 $OSMODE|70 0|"
        "9 $CLAYER|8 W\x8E"
        "NDE|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LTYPE|70 1|0 LTYPE|"
        "2 CONTINUOUS|70 64|3 Solid|72 65|73 0|40 0.0|0 ENDTAB|0 TABLE|2 LAYER|70 1|0 LAYER|"
        "2 W\x8E"
        "NDE|70 64|62 3|6 CONTINUOUS|0 ENDTAB|0 TABLE|2 STYLE|70 1|0 STYLE|"
        "2 STANDARD|70 0|40 0.0|41 1.0|50 0.0|71 0|42 0.2|3 txt|4|0 ENDTAB|0 TABLE|"
        "2 DIMSTYLE|70 1|0 DIMSTYLE|2 PFEIL|70 0|3|4|5 ARROW|6|7|40 1.0|0 ENDTAB|0 ENDSEC|"
        "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 ARROW|70 0|10 0.0|20 0.0|3 ARROW|0 ATTDEF|8 0|"
        "10 0.0|20 0.0|40 2.0|1 M8|3 Name?|2 NAME|70 0|73 5|74 1|0 ENDBLK|8 0|0 BLOCK|8 0|"
        "2 $PAPER_SPACE|70 0|10 0.0|20 0.0|0 ENDBLK|8 0|0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|"
        "6 BYLAYER|8 W\x8E"
        "NDE|62 1|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|39 7.0|0 ARC|"
        "8 0|10 0.0|20 0.0|40 5.0|50 10.0|51 20.0|0 TEXT|8 0|10 0.0|20 0.0|40 2.5|"
        "1 %%c10 \x81"
        "ber \\U+00B0|7 STANDARD|72 1|11 1.0|21 1.0|73 2|0 POLYLINE|8 0|66 1|"
        "70 8|10 0.0|20 0.0|30 0.0|0 VERTEX|8 0|10 1.0|20 1.0|30 1.0|70 32|0 SEQEND|8 0|"
        "0 INSERT|8 0|66 1|2 ARROW|10 9.0|20 9.0|0 ATTRIB|8 0|10 9.0|20 9.0|40 2.0|1 M10|"
        "2 NAME|70 0|0 SEQEND|8 0|0 DIMENSION|8 0|2 ARROW|3 PFEIL|10 0.0|20 9.0|11 5.0|"
        "21 9.0|70 0|1|13 0.0|23 0.0|14 9.0|24 0.0|15 0.0|25 0.0|40 0.0|50 30.0|0 TEXT|67 1|"
        "8 0|10 0.0|20 0.0|40 5.0|1 sheet|0 ENDSEC|0 EOF");
    return text;
}

std::string codesOf(const drawing::Record& record)
{
    std::string out;
    for (const drawing::Tag tag : record.tags)
        out += (tag.code() == 100 ? std::string(tag.text()) : std::to_string(tag.code())) + " ";
    return out;
}

/// The first main entity of that kind.
const drawing::Record& first(const drawing::Drawing& drawing, Kind kind)
{
    for (Index i = 0; i < drawing.recordCount(); ++i)
        if (drawing.at(i).kind() == kind) return drawing.at(i);
    ADD_FAILURE() << "none of that kind";
    return drawing.at(0);
}

template <class Number>
void append(std::string& out, Number number)
{
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    out.append(bytes, sizeof number);
}

/// The binary form of a text, with group codes of two bytes or, as before R13, of one.
std::string binaryForm(std::string_view text, bool oneByte)
{
    std::string out("AutoCAD Binary DXF\r\n\x1A\0", 22);
    std::istringstream lines{std::string(text)};
    for (std::string head, value; std::getline(lines, head) && std::getline(lines, value);) {
        const int code = std::stoi(head);
        if (oneByte && code < 255) out += static_cast<char>(code);
        else append(oneByte ? out += '\xFF' : out, static_cast<std::int16_t>(code));
        drawing::TagKind kind{};
        drawing::fileKind(code, kind);
        switch (kind) {
        case drawing::TagKind::real: append(out, std::stod(value)); break;
        case drawing::TagKind::int16:
            if (code >= 290 && code < 300) out += static_cast<char>(std::stoi(value));
            else append(out, static_cast<std::int16_t>(std::stoi(value)));
            break;
        case drawing::TagKind::int32:
            append(out, static_cast<std::int32_t>(std::stol(value)));
            break;
        case drawing::TagKind::int64:
            append(out, static_cast<std::int64_t>(std::stoll(value)));
            break;
        case drawing::TagKind::binary:
            out += static_cast<char>(value.size() / 2);
            for (std::size_t i = 0; i < value.size(); i += 2)
                out += static_cast<char>(std::stoi(value.substr(i, 2), nullptr, 16));
            break;
        default: out.append(value).push_back('\0');
        }
    }
    return out;
}

} // namespace

TEST(OldFiles, RecordsGetMarkersHandlesAndOwnersOfToday)
{
    const Loaded loaded = loadText(oldText());
    ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
    for (const Warning& warning : loaded.warnings) ADD_FAILURE() << warning.text;
    const drawing::Drawing& d = *loaded.drawing;
    struct Case
    {
        Kind kind;
        std::string_view codes;
    };
    for (const Case& c :
         {Case{Kind::line, "AcDbEntity 6 8 62 AcDbLine 10 11 39 "},
          Case{Kind::arc, "AcDbEntity 8 AcDbCircle 10 40 AcDbArc 50 51 "},
          Case{Kind::text, "AcDbEntity 8 AcDbText 10 40 1 7 72 11 AcDbText 73 "},
          Case{Kind::polyline, "AcDbEntity 8 AcDb3dPolyline 66 70 10 "},
          Case{Kind::vertex, "AcDbEntity 8 AcDbVertex AcDb3dPolylineVertex 10 70 "},
          Case{Kind::attdef, "AcDbEntity 8 AcDbText 10 40 1 AcDbAttributeDefinition 3 2 70 73 74 "},
          Case{Kind::dimension, "AcDbEntity 8 AcDbDimension 2 3 10 11 70 1 AcDbAlignedDimension "
                                "13 14 50 AcDbRotatedDimension "},
          Case{Kind::dimstyle, "AcDbSymbolTableRecord AcDbDimStyleTableRecord 2 70 3 4 342 40 "}})
        EXPECT_EQ(codesOf(first(d, c.kind)), c.codes);
    EXPECT_EQ(first(d, Kind::dimstyle).tags.handle(342),
              d.at(d.findRecord(TableId::blockRecord, "Arrow")).handle);
    std::size_t onSheet = 0;
    for (Index i = d.firstChild(d.paperSpace()); i != drawing::kNone; i = d.next(i)) ++onSheet;
    EXPECT_EQ(onSheet, 1u);
    EXPECT_EQ(d.header.text("$CLAYER"), "WÄNDE");
    EXPECT_FALSE(d.header.has("$OSMODE"));
    TemporaryFolder folder;
    ASSERT_TRUE(save(d, folder.file("new.dxf")).good);
    const Audit found = audit(folder.file("new.dxf"));
    EXPECT_TRUE(found.kinds.empty()) << found.kinds.front().first.text;
    expectAudited(folder.file("new.dxf"));
    EXPECT_TRUE(load(folder.file("new.dxf")).warnings.empty());
    // A style with two names for one arrow is no reason to write what cannot be read.
    const Loaded twice = loadText(replaced(oldText(), groups("5 ARROW"), groups("5 ARROW|5 B")));
    ASSERT_NE(twice.drawing, nullptr);
    EXPECT_NE(loadText(saveText(*twice.drawing)).drawing, nullptr);
}

TEST(OldFiles, FilesThatAnotherProgramWritesComeThroughTextAndBinary)
{
    TemporaryFolder folder;
    const std::string path = folder.file("old.dxf"), saved = folder.file("new.dxf");
    for (const std::string form : {"asc", "bin"}) {
        const int made = runTool("make_dxf.py", "old R12 " + path + " " + form);
        if (made == kNoLibrary) GTEST_SKIP() << "the other program's library is not installed";
        ASSERT_EQ(made, 0);
        const Loaded loaded = load(path);
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        EXPECT_EQ(loaded.version, "AC1009");
        ASSERT_TRUE(save(*loaded.drawing, saved).good);
        EXPECT_TRUE(audit(saved).good()) << audit(saved).kinds.front().first.text;
        expectAudited(saved);
    }
}

TEST(BinaryFiles, HoldTheSameDrawingAsText)
{
    struct Case
    {
        std::string text;
        bool oneByte;
    };
    for (const Case& c : {Case{oldText(), true}, Case{oldText(), false},
                          Case{readFile(samplePath("R2013")), false}, Case{newText(), false}}) {
        const std::string binary = binaryForm(c.text, c.oneByte);
        const Loaded a = loadText(c.text), b = loadText(binary);
        ASSERT_NE(b.drawing, nullptr) << b.error.message();
        EXPECT_EQ(saveText(*b.drawing), saveText(*a.drawing));
        const Audit found = auditText(binary);
        EXPECT_TRUE(found.good()) << found.kinds.front().first.text;
    }
    // Cut anywhere it is refused; through a file it passes as from memory.
    const std::string binary = binaryForm(newText(), false);
    for (std::size_t size = 22; size + 6 < binary.size(); size += 7)
        ASSERT_EQ(loadText(std::string_view(binary).substr(0, size)).drawing, nullptr) << size;
    TemporaryFolder folder;
    writeFile(folder.file("a.dxf"), binary);
    ASSERT_NE(load(folder.file("a.dxf")).drawing, nullptr);
    // A problem is told with the line that the text would have.
    const std::string text = intoSection(newText(), "ENTITIES", groups("0 LINE|5 XYZ"));
    const Loaded bad = loadText(binaryForm(text, false)), badText = loadText(text);
    EXPECT_EQ(bad.error.message(), badText.error.message());
}

TEST(CodePages, TextsComeInTheEncodingThatTheHeaderTells)
{
    struct Case
    {
        std::string_view page, bytes, text;
    };
    for (const Case& c :
         {Case{"ANSI_1252",
               "Gr\xFC\xDF"
               "e \x80",
               "Grüße €"},
          Case{"ansi_1251", "\xCF\xEB\xE0\xED", "План"},
          Case{"ANSI_1250",
               "\xD8"
               "ez",
               "Řez"},
          Case{"ANSI_1253", "\xD3\xF7", "Σχ"}, Case{"ANSI_1254", "\xDE", "Ş"},
          Case{"dos437", "\x81\xE1", "üß"}, Case{"DOS866", "\x8F\xAB", "Пл"},
          Case{"ISO8859-2", "\xA9", "Š"},
          // The second byte of the first one is a backslash, that of the other a caret.
          Case{"ANSI_932", "\x95\x5C\x8E\xA6 \x83^", "表示 タ"},
          Case{"ANSI_936", "\xCD\xBC\xD6\xBD", "图纸"},
          Case{"ANSI_949", "\xB5\xB5\xB8\xE9", "도면"}, Case{"BIG5", "\xB9\xCF", "圖"},
          Case{"ascii", "\xE4", "ä"}, Case{"", "\xE4", "ä"}}) {
        std::string text = replaced(newText(), "AC1027", "AC1015");
        text = replaced(text, groups("3 ANSI_1252"), groups("3 " + std::string(c.page)));
        text =
            intoSection(text, "ENTITIES",
                        groups("0 TEXT|5 A1|330 1F|100 AcDbEntity|8 0|1 " + std::string(c.bytes)));
        const Loaded loaded = loadText(text);
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        const auto kept = loaded.drawing->at(loaded.drawing->byHandle(0xA1)).tags.text(1);
        EXPECT_EQ(drawing::text8(kept), c.text) << c.page;
        EXPECT_TRUE(loaded.warnings.empty()) << c.page;
        ASSERT_NE(loadText(saveText(*loaded.drawing)).drawing, nullptr);
    }
    std::string strange = replaced(newText(), "AC1027", "AC1015");
    strange = replaced(strange, groups("3 ANSI_1252"), groups("3 KLINGON"));
    const Loaded loaded = loadText(strange);
    ASSERT_EQ(loaded.warnings.size(), 1u);
    EXPECT_NE(loaded.warnings[0].text.find("KLINGON"), std::string::npos);
}

TEST(CodePages, NamesAreJudgedAndKeptAsTheirCharacters)
{
    // The bytes hold a backslash; a form stands for what the page does not have.
    for (const auto& [page, bytes, name] :
         {std::tuple{"ANSI_932", "\x95\x5C\x8E\xA6", "表示"}, std::tuple{"BIG5", "\xA5\x5C", "功"},
          std::tuple{"ANSI_1252", "\\U+1EDD\xE4\\M+1955C", "ờä表"}}) {
        std::string text = replaced(newText(), "AC1027", "AC1018");
        text = replaced(text, groups("9 $ACADVER|1 AC1018"), ""); // the page may stand in front
        text = replaced(text, groups("3 ANSI_1252"),
                        groups("3 " + std::string(page) + "|9 $ACADVER|1 AC1018"));
        const std::string layer =
            groups("0 LAYER|5 A1|330 2|100 AcDbSymbolTableRecord|100 "
                   "AcDbLayerTableRecord|2 " +
                   std::string(bytes) + "|70 0|62 7|6 Continuous|370 -3|390 F");
        text = replaced(text, groups("0 ENDTAB|0 TABLE|2 STYLE"),
                        layer + groups("0 ENDTAB|0 TABLE|2 STYLE"));
        for (const ProblemSum& sum : auditText(text).kinds)
            EXPECT_NE(sum.first.kind, "name") << sum.first.text;
        const Loaded loaded = loadText(text);
        ASSERT_NE(loaded.drawing, nullptr) << loaded.error.message();
        EXPECT_EQ(loaded.drawing->at(loaded.drawing->byHandle(0xA1)).name(),
                  std::string_view(name));
        EXPECT_NE(saveText(*loaded.drawing).find(groups("2 " + std::string(name))),
                  std::string::npos);
    }
}

TEST(CodePages, FormsOfOldMultiByteCharactersAreRead)
{
    struct Case
    {
        std::string_view form, text;
    };
    for (const Case& c :
         {Case{"\\M+1955C\\M+18EA6", "表示"}, Case{"\\M+5CDBC", "图"}, Case{"\\m+3B5B5", "도"},
          Case{"\\M+2B9CF!", "圖!"}, Case{"\\M+100B1", "ｱ"}, Case{"\\M+41234", "\\M+41234"},
          Case{"\\M+1FFFF", "\\M+1FFFF"}, Case{"\\M+195", "\\M+195"}})
        EXPECT_EQ(drawing::text8(c.form), c.text);
    EXPECT_TRUE(drawing::sameName("\\M+1955C", "表"));
}
