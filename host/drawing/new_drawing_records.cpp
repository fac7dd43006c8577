// SPDX-License-Identifier: LicenseRef-ORVALD
// Tables, blocks, objects and classes of a new metric drawing. Handles of the tables, the root
// dictionary and the required records are those of drawings born in the host.
// Format: new_drawing_data.h.
#include "new_drawing_data.h"

namespace orvald::drawing {

const std::string_view kNewClasses = R"(
ACDBDICTIONARYWDFLT|AcDbDictionaryWithDefault|ObjectDBX Classes|0
DICTIONARYVAR|AcDbDictionaryVar|ObjectDBX Classes|0
MATERIAL|AcDbMaterial|ObjectDBX Classes|1153
VISUALSTYLE|AcDbVisualStyle|ObjectDBX Classes|4095
TABLESTYLE|AcDbTableStyle|ObjectDBX Classes|4095
SCALE|AcDbScale|ObjectDBX Classes|1153
MLEADERSTYLE|AcDbMLeaderStyle|ACDB_MLEADERSTYLE_CLASS|4095
SORTENTSTABLE|AcDbSortentsTable|ObjectDBX Classes|0
ACDBPLACEHOLDER|AcDbPlaceHolder|ObjectDBX Classes|0
LAYOUT|AcDbLayout|ObjectDBX Classes|0
)";

const std::string_view kNewRecords = R"(
0 TABLE | 2 VPORT | 5 8 | 330 0 | 100 AcDbSymbolTable | 70 0
0 VPORT | 5 29 | 330 8 | 100 AcDbSymbolTableRecord | 100 AcDbViewportTableRecord | 2 *Active |
    70 0 | 10 0.0 0.0 | 11 1.0 1.0 | 12 210.0 148.5 | 13 0.0 0.0 | 14 10.0 10.0 | 15 10.0 10.0 |
    16 0.0 0.0 1.0 | 17 0.0 0.0 0.0 | 40 297.0 | 41 1.5 | 42 50.0 | 43 0.0 | 44 0.0 | 50 0.0 |
    51 0.0 | 71 0 | 72 1000 | 73 1 | 74 3 | 75 0 | 76 0 | 77 0 | 78 0 | 281 0 | 65 0 | 146 0.0
0 TABLE | 2 LTYPE | 5 5 | 330 0 | 100 AcDbSymbolTable | 70 0
0 LTYPE | 5 14 | 330 5 | 100 AcDbSymbolTableRecord | 100 AcDbLinetypeTableRecord | 2 ByBlock |
    70 0 | 3 | 72 65 | 73 0 | 40 0.0
0 LTYPE | 5 15 | 330 5 | 100 AcDbSymbolTableRecord | 100 AcDbLinetypeTableRecord | 2 ByLayer |
    70 0 | 3 | 72 65 | 73 0 | 40 0.0
0 LTYPE | 5 16 | 330 5 | 100 AcDbSymbolTableRecord | 100 AcDbLinetypeTableRecord | 2 Continuous |
    70 0 | 3 Solid line | 72 65 | 73 0 | 40 0.0
0 TABLE | 2 LAYER | 5 2 | 330 0 | 100 AcDbSymbolTable | 70 0
0 LAYER | 5 10 | 330 2 | 100 AcDbSymbolTableRecord | 100 AcDbLayerTableRecord | 2 0 | 70 0 |
    62 7 | 6 Continuous | 370 -3 | 390 F | 347 5B
0 TABLE | 2 STYLE | 5 3 | 330 0 | 100 AcDbSymbolTable | 70 0
0 STYLE | 5 11 | 330 3 | 100 AcDbSymbolTableRecord | 100 AcDbTextStyleTableRecord | 2 Standard |
    70 0 | 40 0.0 | 41 1.0 | 50 0.0 | 71 0 | 42 2.5 | 3 txt | 4
0 TABLE | 2 VIEW | 5 6 | 330 0 | 100 AcDbSymbolTable | 70 0
0 TABLE | 2 UCS | 5 7 | 330 0 | 100 AcDbSymbolTable | 70 0
0 TABLE | 2 APPID | 5 9 | 330 0 | 100 AcDbSymbolTable | 70 0
0 APPID | 5 12 | 330 9 | 100 AcDbSymbolTableRecord | 100 AcDbRegAppTableRecord | 2 ACAD | 70 0
0 TABLE | 2 DIMSTYLE | 5 A | 330 0 | 100 AcDbSymbolTable | 70 0 | 100 AcDbDimStyleTable | 71 0
0 DIMSTYLE | 105 27 | 330 A | 100 AcDbSymbolTableRecord | 100 AcDbDimStyleTableRecord |
    2 Standard | 70 0 | 178 0 | 340 11
0 DIMSTYLE | 105 28 | 330 A | 100 AcDbSymbolTableRecord | 100 AcDbDimStyleTableRecord | 2 ISO-25 |
    70 0 | 41 2.5 | 42 0.625 | 43 3.75 | 44 1.25 | 73 0 | 74 0 | 77 1 | 78 8 | 140 2.5 | 141 2.5 |
    143 0.03937007874015748 | 147 0.625 | 171 3 | 172 1 | 178 0 | 271 2 | 272 2 | 274 3 | 278 44 |
    283 0 | 284 8 | 340 11
0 TABLE | 2 BLOCK_RECORD | 5 1 | 330 0 | 100 AcDbSymbolTable | 70 0
0 BLOCK_RECORD | 5 1F | 330 1 | 100 AcDbSymbolTableRecord | 100 AcDbBlockTableRecord |
    2 *Model_Space | 340 22 | 70 0 | 280 1 | 281 0
0 BLOCK_RECORD | 5 1B | 330 1 | 100 AcDbSymbolTableRecord | 100 AcDbBlockTableRecord |
    2 *Paper_Space | 340 1E | 70 0 | 280 1 | 281 0
0 BLOCK | 5 20 | 330 1F | 100 AcDbEntity | 8 0 | 100 AcDbBlockBegin | 2 *Model_Space | 70 0 |
    10 0.0 0.0 0.0 | 3 *Model_Space | 1
0 ENDBLK | 5 21 | 330 1F | 100 AcDbEntity | 8 0 | 100 AcDbBlockEnd
0 BLOCK | 5 1C | 330 1B | 100 AcDbEntity | 67 1 | 8 0 | 100 AcDbBlockBegin | 2 *Paper_Space |
    70 0 | 10 0.0 0.0 0.0 | 3 *Paper_Space | 1
0 ENDBLK | 5 1D | 330 1B | 100 AcDbEntity | 67 1 | 8 0 | 100 AcDbBlockEnd
0 DICTIONARY | 5 C | 330 0 | 100 AcDbDictionary | 281 1 | 3 ACAD_COLOR | 350 50 | 3 ACAD_GROUP |
    350 D | 3 ACAD_LAYOUT | 350 1A | 3 ACAD_MATERIAL | 350 51 | 3 ACAD_MLEADERSTYLE | 350 52 |
    3 ACAD_MLINESTYLE | 350 17 | 3 ACAD_PLOTSETTINGS | 350 53 | 3 ACAD_PLOTSTYLENAME | 350 E |
    3 ACAD_SCALELIST | 350 54 | 3 ACAD_TABLESTYLE | 350 55 | 3 ACAD_VISUALSTYLE | 350 56
0 DICTIONARY | 5 50 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 DICTIONARY | 5 D | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 DICTIONARY | 5 1A | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1 |
    3 Layout1 | 350 1E | 3 Model | 350 22
0 DICTIONARY | 5 51 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1 |
    3 ByBlock | 350 59 | 3 ByLayer | 350 5A | 3 Global | 350 5B
0 DICTIONARY | 5 52 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1 |
    3 Standard | 350 5C
0 DICTIONARY | 5 17 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1 |
    3 Standard | 350 18
0 DICTIONARY | 5 53 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 ACDBDICTIONARYWDFLT | 5 E | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary |
    281 1 | 3 Normal | 350 F | 100 AcDbDictionaryWithDefault | 340 F
0 ACDBPLACEHOLDER | 5 F | 102 {ACAD_REACTORS | 330 E | 102 } | 330 E
0 DICTIONARY | 5 54 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1 |
    3 A0 | 350 60 | 3 A1 | 350 61 | 3 A2 | 350 62 | 3 A3 | 350 63 | 3 A4 | 350 64 | 3 A5 |
    350 65 | 3 A6 | 350 66 | 3 A7 | 350 67 | 3 A8 | 350 68 | 3 A9 | 350 69
0 DICTIONARY | 5 55 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 DICTIONARY | 5 56 | 102 {ACAD_REACTORS | 330 C | 102 } | 330 C | 100 AcDbDictionary | 281 1
0 SCALE | 5 60 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:1 |
    140 1.0 | 141 1.0 | 290 1
0 SCALE | 5 61 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:2 |
    140 1.0 | 141 2.0 | 290 0
0 SCALE | 5 62 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:5 |
    140 1.0 | 141 5.0 | 290 0
0 SCALE | 5 63 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:10 |
    140 1.0 | 141 10.0 | 290 0
0 SCALE | 5 64 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:20 |
    140 1.0 | 141 20.0 | 290 0
0 SCALE | 5 65 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:50 |
    140 1.0 | 141 50.0 | 290 0
0 SCALE | 5 66 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 1:100 |
    140 1.0 | 141 100.0 | 290 0
0 SCALE | 5 67 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 2:1 |
    140 2.0 | 141 1.0 | 290 0
0 SCALE | 5 68 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 5:1 |
    140 5.0 | 141 1.0 | 290 0
0 SCALE | 5 69 | 102 {ACAD_REACTORS | 330 54 | 102 } | 330 54 | 100 AcDbScale | 70 0 | 300 10:1 |
    140 10.0 | 141 1.0 | 290 0
0 LAYOUT | 5 22 | 102 {ACAD_REACTORS | 330 1A | 102 } | 330 1A | 100 AcDbPlotSettings | 1 |
    2 none_device | 4 ISO_A3_(420.00_x_297.00_MM) | 6 | 40 7.5 | 41 20.0 | 42 7.5 | 43 20.0 |
    44 420.0 | 45 297.0 | 46 0.0 | 47 0.0 | 48 0.0 | 49 0.0 | 140 0.0 | 141 0.0 | 142 1.0 |
    143 1.0 | 70 1712 | 72 1 | 73 0 | 74 5 | 7 | 75 16 | 76 0 | 77 2 | 78 300 | 147 1.0 |
    148 0.0 | 149 0.0 | 100 AcDbLayout | 1 Model | 70 1 | 71 0 | 10 0.0 0.0 | 11 420.0 297.0 |
    12 0.0 0.0 0.0 | 14 1E+20 1E+20 1E+20 | 15 -1E+20 -1E+20 -1E+20 | 146 0.0 | 13 0.0 0.0 0.0 |
    16 1.0 0.0 0.0 | 17 0.0 1.0 0.0 | 76 0 | 330 1F
0 LAYOUT | 5 1E | 102 {ACAD_REACTORS | 330 1A | 102 } | 330 1A | 100 AcDbPlotSettings | 1 |
    2 none_device | 4 ISO_A3_(420.00_x_297.00_MM) | 6 | 40 7.5 | 41 20.0 | 42 7.5 | 43 20.0 |
    44 420.0 | 45 297.0 | 46 0.0 | 47 0.0 | 48 0.0 | 49 0.0 | 140 0.0 | 141 0.0 | 142 1.0 |
    143 1.0 | 70 688 | 72 1 | 73 0 | 74 5 | 7 | 75 16 | 76 0 | 77 2 | 78 300 | 147 1.0 | 148 0.0 |
    149 0.0 | 100 AcDbLayout | 1 Layout1 | 70 1 | 71 1 | 10 0.0 0.0 | 11 420.0 297.0 |
    12 0.0 0.0 0.0 | 14 1E+20 1E+20 1E+20 | 15 -1E+20 -1E+20 -1E+20 | 146 0.0 | 13 0.0 0.0 0.0 |
    16 1.0 0.0 0.0 | 17 0.0 1.0 0.0 | 76 0 | 330 1B
0 MATERIAL | 5 59 | 102 {ACAD_REACTORS | 330 51 | 102 } | 330 51 | 100 AcDbMaterial | 1 ByBlock |
    2 | 70 0 | 40 1.0 | 71 1 | 41 1.0 | 91 -1023410177 | 42 1.0 | 72 1 | 3 | 73 1 | 74 1 | 75 1 |
    44 0.5 | 73 0 | 45 1.0 | 46 1.0 | 77 1 | 4 | 78 1 | 79 1 | 170 1 | 48 1.0 | 171 1 | 6 |
    172 1 | 173 1 | 174 1 | 140 1.0 | 141 1.0 | 175 1 | 7 | 176 1 | 177 1 | 178 1 | 143 1.0 |
    179 1 | 8 | 270 1 | 271 1 | 272 1 | 145 1.0 | 146 1.0 | 273 1 | 9 | 274 1 | 275 1 | 276 1 |
    42 1.0 | 72 1 | 3 | 73 1 | 74 1 | 75 1 | 94 63
0 MATERIAL | 5 5A | 102 {ACAD_REACTORS | 330 51 | 102 } | 330 51 | 100 AcDbMaterial | 1 ByLayer |
    2 | 70 0 | 40 1.0 | 71 1 | 41 1.0 | 91 -1023410177 | 42 1.0 | 72 1 | 3 | 73 1 | 74 1 | 75 1 |
    44 0.5 | 73 0 | 45 1.0 | 46 1.0 | 77 1 | 4 | 78 1 | 79 1 | 170 1 | 48 1.0 | 171 1 | 6 |
    172 1 | 173 1 | 174 1 | 140 1.0 | 141 1.0 | 175 1 | 7 | 176 1 | 177 1 | 178 1 | 143 1.0 |
    179 1 | 8 | 270 1 | 271 1 | 272 1 | 145 1.0 | 146 1.0 | 273 1 | 9 | 274 1 | 275 1 | 276 1 |
    42 1.0 | 72 1 | 3 | 73 1 | 74 1 | 75 1 | 94 63
0 MATERIAL | 5 5B | 102 {ACAD_REACTORS | 330 51 | 102 } | 330 51 | 100 AcDbMaterial | 1 Global |
    2 | 70 0 | 40 1.0 | 71 1 | 41 1.0 | 91 -1023410177 | 42 1.0 | 72 1 | 3 | 73 1 | 74 1 | 75 1 |
    44 0.5 | 73 0 | 45 1.0 | 46 1.0 | 77 1 | 4 | 78 1 | 79 1 | 170 1 | 48 1.0 | 171 1 | 6 |
    172 1 | 173 1 | 174 1 | 140 1.0 | 141 1.0 | 175 1 | 7 | 176 1 | 177 1 | 178 1 | 143 1.0 |
    179 1 | 8 | 270 1 | 271 1 | 272 1 | 145 1.0 | 146 1.0 | 273 1 | 9 | 274 1 | 275 1 | 276 1 |
    42 1.0 | 72 1 | 3 | 73 1 | 74 1 | 75 1 | 94 63
0 MLINESTYLE | 5 18 | 102 {ACAD_REACTORS | 330 17 | 102 } | 330 17 | 100 AcDbMlineStyle |
    2 Standard | 70 0 | 3 | 62 256 | 51 90.0 | 52 90.0 | 71 2 | 49 0.5 | 62 256 | 6 BYLAYER |
    49 -0.5 | 62 256 | 6 BYLAYER
0 MLEADERSTYLE | 5 5C | 102 {ACAD_REACTORS | 330 52 | 102 } | 330 52 | 100 AcDbMLeaderStyle |
    179 2 | 170 2 | 171 1 | 172 0 | 90 2 | 40 0.0 | 41 0.0 | 173 1 | 91 -1056964608 | 92 -2 |
    290 1 | 42 2.0 | 291 1 | 43 8.0 | 3 Standard | 44 4.0 | 300 | 342 11 | 174 1 | 175 1 | 176 0 |
    178 1 | 93 -1056964608 | 45 4.0 | 292 0 | 297 0 | 46 4.0 | 94 -1056964608 | 47 1.0 | 49 1.0 |
    140 1.0 | 294 1 | 141 0.0 | 177 0 | 142 1.0 | 295 0 | 296 0 | 143 3.75 | 271 0 | 272 9 |
    273 9
)";

} // namespace orvald::drawing
