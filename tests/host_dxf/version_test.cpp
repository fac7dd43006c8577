// SPDX-License-Identifier: LicenseRef-ORVALD
// Older and newer versions are brought to the one that is written; missing pieces are made.
#include "dxf_support.h"

#include "drawing/text.h"

using namespace orvald;
using namespace orvald::dxf;
using drawing::TableId;

namespace {

std::string asVersion(std::string_view version, std::string text = newText())
{
    return replaced(std::move(text), "AC1027", version);
}

Loaded loadGood(const std::string& text)
{
    Loaded loaded = loadText(text);
    EXPECT_NE(loaded.drawing, nullptr) << loaded.error.message();
    return loaded;
}

} // namespace

TEST(Versions, CodePagesAndEscapesBecomeUnicode)
{
    const std::string style = groups("0 LAYER|5 A1|330 2|100 AcDbSymbolTableRecord|100 "
                                     "AcDbLayerTableRecord|70 0|62 7|6 Continuous|2 W\xE4nde \x80");
    const Loaded old = loadGood(intoSection(asVersion("AC1015"), "TABLES", ""));
    std::string text = asVersion("AC1018");
    text = replaced(text, groups("0 ENDTAB|0 TABLE|2 STYLE"),
                    style + groups("0 ENDTAB|0 TABLE|2 STYLE"));
    const Loaded ansi = loadGood(text);
    EXPECT_NE(ansi.drawing->findRecord(TableId::layer, "WÄNDE €"), drawing::kNone);
    EXPECT_TRUE(ansi.warnings.empty());
    const Loaded wrong =
        loadGood(replaced(text, "AC1018", "AC1021")); // not UTF-8, though it should be
    EXPECT_NE(wrong.drawing->findRecord(TableId::layer, "WÄNDE €"), drawing::kNone);
    ASSERT_EQ(wrong.warnings.size(), 1u);
    EXPECT_NE(wrong.warnings[0].line, 0u);
}

TEST(Versions, OldProxiesAndClassesGetTheirPresentGroups)
{
    std::string text = asVersion("AC1015");
    text = intoSection(text, "CLASSES", groups("0 CLASS|1 OLD|2 Old|3 App|90 1|280 0|281 1"));
    text = intoSection(text, "ENTITIES",
                       groups("0 ACAD_PROXY_ENTITY|5 A1|330 1F|100 AcDbEntity|8 0|92 2|310 "
                              "0102|100 AcDbProxyEntity|90 498|91 500|95 1|70 0|"
                              "92 1|310 01|93 12|310 FF|94 0"));
    const Loaded loaded = loadGood(text);
    EXPECT_EQ(loaded.version, "AC1015");
    EXPECT_EQ(loaded.drawing->header.text("$ACADVER"), "AC1027");
    const drawing::TagList& row = loaded.drawing->classes.back();
    EXPECT_EQ((*std::next(row.find(90))).code(), 91);
    std::string codes;
    for (const drawing::Tag tag : loaded.drawing->at(loaded.drawing->byHandle(0xA1)).tags)
        codes += std::to_string(tag.code()) + " ";
    EXPECT_EQ(codes, "100 8 160 310 100 90 91 95 70 160 310 161 310 94 ");
}

TEST(Versions, TheNewestLosesOnlyWhatTheWrittenOneDoesNotHave)
{
    std::string text = replaced(asVersion("AC1032"), groups("9 $ACADMAINTVER|70    125"),
                                groups("9 $ACADMAINTVER|90 4"));
    text = intoSection(
        text, "ENTITIES",
        groups("0 ACAD_PROXY_ENTITY|5 A1|330 1F|100 AcDbEntity|8 0|100 AcDbProxyEntity|90 498|91 "
               "500|71 33|97 104|70 0|161 0|94 0|"
               "0 MTEXT|5 A2|330 1F|100 AcDbEntity|8 0|100 AcDbMText|10 0.0|20 0.0|30 0.0|40 2.5|1 "
               "abc|101 Embedded Object|70 1|10 1.0|20 0.0|30 0.0|1001 ACAD|1000 kept"));
    const Loaded loaded = loadGood(text);
    const drawing::TagList& proxy = loaded.drawing->at(loaded.drawing->byHandle(0xA1)).tags;
    EXPECT_EQ(proxy.integer(95), 33 + (104 << 16));
    EXPECT_FALSE(proxy.has(71) || proxy.has(97));
    // A number beyond 16 bits does not spill over.
    const Loaded broken = loadGood(replaced(text, groups("97 104"), groups("97 1610612739")));
    EXPECT_EQ(broken.drawing->at(broken.drawing->byHandle(0xA1)).tags.integer(95), 33 + (3 << 16));
    const drawing::Record& mtext = loaded.drawing->at(loaded.drawing->byHandle(0xA2));
    EXPECT_FALSE(mtext.tags.has(101));
    EXPECT_EQ(mtext.extras()->xdata.text(1000), "kept");
    EXPECT_EQ(loaded.warnings.size(), 1u);
    EXPECT_NE(saveText(*loaded.drawing).find(groups("9 $ACADMAINTVER|70    125")),
              std::string::npos);
}

TEST(Completion, ABareFileBecomesOneThatTheHostOpens)
{
    const std::string bare = groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|"
                                    "0 SECTION|2 ENTITIES|0 LINE|5 A1|8 Neu|10 0.0|20 0.0|30 "
                                    "0.0|11 1.0|21 0.0|31 0.0|0 ENDSEC|0 EOF");
    const Loaded loaded = loadGood(bare);
    EXPECT_FALSE(loaded.warnings.empty());
    EXPECT_EQ(loaded.drawing->blockOf(loaded.drawing->byHandle(0xA1)),
              loaded.drawing->modelSpace());
    TemporaryFolder folder;
    ASSERT_TRUE(save(*loaded.drawing, folder.file("bare.dxf")).good);
    EXPECT_TRUE(load(folder.file("bare.dxf")).warnings.empty()); // nothing is left to mend
    const std::string text = readFile(folder.file("bare.dxf"));
    for (const std::string_view piece :
         {"ACAD_PLOTSTYLENAME", "ACAD_MATERIAL", "*Paper_Space", "AcDbDimStyleTable"})
        EXPECT_NE(text.find(piece), std::string::npos) << piece;
}

TEST(Completion, EveryLayerGetsItsPlotStyleAndMaterial)
{
    const std::string layer = groups("0 LAYER|5 A1|330 2|100 AcDbSymbolTableRecord|100 "
                                     "AcDbLayerTableRecord|2 Alt|70 0|62 7|6 Continuous");
    const Loaded loaded = loadGood(replaced(newText(), groups("0 ENDTAB|0 TABLE|2 STYLE"),
                                            layer + groups("0 ENDTAB|0 TABLE|2 STYLE")));
    const drawing::TagList& tags = loaded.drawing->at(loaded.drawing->byHandle(0xA1)).tags;
    EXPECT_EQ(tags.handle(390), 0xFu);
    EXPECT_EQ(tags.handle(347), 0x5Bu);
    EXPECT_EQ(tags.integer(370), -3);
}
