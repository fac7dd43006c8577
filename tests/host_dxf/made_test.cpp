// SPDX-License-Identifier: LicenseRef-ORVALD
// Drawings that programs make by lists are files that others accept.
#include "../host_drawing/chain_text.h"
#include "dxf_support.h"

using namespace orvald;
using namespace orvald::dxf;
using namespace orvald::drawing;

TEST(MadeDrawing, PassesTheAuditWithEveryKindOfEntity)
{
    Fixture f;
    f.functions.regApp(u"ORV");
    constexpr std::string_view lists[] = {
        "0 LAYER|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Wände|70 0|62 3|6 Continuous",
        "0 LTYPE|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 STRICH|70 0|3 __ _|72 "
        "65|73 2|40 1.5|49 1|74 0|49 -0.5|74 0",
        "0 STYLE|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 ISO|70 0|40 0|41 1|50 "
        "0|71 0|42 2.5|3 isocp.shx|4",
        "0 LINE|8 Wände|6 STRICH|62 1|370 35|48 2|10 0 0 0|11 1 2 3|-3|1001 ORV|1000 x|1002 {|1070 "
        "1|1002 }",
        "0 POINT|10 1 2 3|50 0.5",
        "0 CIRCLE|10 0 0 0|40 5|39 2|210 1 0 0",
        "0 ARC|10 0 0 0|40 5|50 1|51 2",
        "0 ELLIPSE|100 AcDbEntity|100 AcDbEllipse|10 0 0 0|11 2 0 0|40 0.5|41 0|42 "
        "6.283185307179586",
        "0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|90 3|70 1|10 0 0 0|42 0.5|10 3 4 0|40 1|41 "
        "2|10 5 5 0",
        "0 POLYLINE|66 1|10 0 0 2|70 1",
        "0 VERTEX|10 0 0 2|42 1",
        "0 VERTEX|10 1 0 2",
        "0 SEQEND",
        "0 POLYLINE|70 8",
        "0 VERTEX|10 0 0 2|70 32",
        "0 VERTEX|10 1 0 3|70 32",
        "0 SEQEND",
        "0 TEXT|10 0 0 0|40 2|1 a^b\n°|7 ISO|72 1|11 1 1 0|73 2",
        "0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|40 2.5|41 50|71 1|1 "
        "{\\H2x;gro\u00DF}\\Pzwei",
        "0 SOLID|10 0 0 0|11 1 0 0|12 0 1 0|13 1 1 0",
        "0 TRACE|10 0 0 0|11 1 0 0|12 0 1 0|13 1 1 0",
        "0 3DFACE|10 0 0 0|11 1 0 0|12 1 1 1|13 0 1 1|70 3",
        "0 RAY|100 AcDbEntity|100 AcDbRay|10 0 0 0|11 1 0 0",
        "0 XLINE|100 AcDbEntity|100 AcDbXline|10 0 0 0|11 1 0 0",
        "0 HATCH|100 AcDbEntity|100 AcDbHatch|10 0 0 0|210 0 0 1|2 SOLID|70 1|71 0|91 1|92 3|72 "
        "0|73 1|93 3|10 0 0 0|10 9 0 0|10 9 9 0|97 0|75 0|76 1|98 0",
        "0 SPLINE|100 AcDbEntity|8 0|100 AcDbSpline|210 0 0 1|70 8|71 3|72 8|73 4|74 0|42 "
        "0.0000001|43 0.0000001|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1|10 0 0 0|10 1 2 0|10 3 2 "
        "0|10 4 0 0",
        "0 LEADER|100 AcDbEntity|8 0|100 AcDbLeader|3 ISO-25|71 1|72 0|73 3|74 0|75 0|40 0|41 0|76 "
        "2|10 0 0 0|10 5 5 0|210 0 0 1|211 1 0 0|212 0 0 0|213 0 0 0",
        "0 BLOCK|2 Bolzen|70 2|10 0 0 0",
        "0 CIRCLE|8 0|10 0 0 0|40 1",
        "0 ATTDEF|10 0 0 0|40 2|1 M8|3 Name?|2 NAME|70 0",
        "0 ENDBLK",
        "0 INSERT|66 1|2 Bolzen|10 5 5 0|41 2|42 2|43 2",
        "0 ATTRIB|10 5 5 0|40 2|1 M10|2 NAME|70 0",
        "0 SEQEND",
        "0 INSERT|2 Bolzen|10 50 5 0|70 3|71 2|44 10|45 10",
        "0 TEXT|67 1|410 Layout1|10 0 0 0|40 2|1 sheet"};
    for (const std::string_view list : lists) {
        f.make(list);
        ASSERT_EQ(f.error, ErrNo::none) << list;
    }
    const ObjectId dictionary = f.make("0 DICTIONARY|100 AcDbDictionary|280 1");
    f.functions.dictAdd(f.functions.namedObjDict(), u"MEINE", dictionary);
    f.functions.dictAdd(dictionary, u"Daten",
                        f.make("0 XRECORD|100 AcDbXrecord|1 x|10 1 2 3|40 0.1|330 #1f"));
    const Index last = f.drawing->indexOf(f.functions.entLast());
    f.drawing->addToDictionary(f.drawing->needExtensionDictionary(last), "KEX_DATA",
                               f.drawing->indexOf(f.make("0 XRECORD|100 AcDbXrecord|90 1")));

    TemporaryFolder folder;
    const Saved saved = save(*f.drawing, folder.file("made.dxf"));
    ASSERT_TRUE(saved.good) << saved.error.message();
    if (const char* kept = std::getenv("ORVALD_KEEP_DXF"))
        std::filesystem::copy_file(folder.file("made.dxf"), kept,
                                   std::filesystem::copy_options::overwrite_existing);
    expectAudited(folder.file("made.dxf"));
    const Loaded loaded = load(folder.file("made.dxf"));
    ASSERT_NE(loaded.drawing, nullptr);
    for (const Warning& warning : loaded.warnings) ADD_FAILURE() << warning.text;
    EXPECT_EQ(saveText(*loaded.drawing), readFile(folder.file("made.dxf")));
}
