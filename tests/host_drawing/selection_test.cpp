// SPDX-License-Identifier: LicenseRef-ORVALD
// Filter lists.
#include "chain_text.h"
#include "drawing/selection.h"

#include <gtest/gtest.h>

using namespace orvald::drawing;

namespace {

/// Names of the entities that a filter finds (their layers), or "malformed".
struct Selection : Fixture
{
    Selection()
    {
        functions.regApp(u"APP");
        make("0 LINE|8 line|62 1|10 0 0 0|11 10 0 0");
        make("0 CIRCLE|8 small|10 5 5 0|40 2.5");
        make("0 CIRCLE|8 large|10 50 60 7|40 100|-3|1001 APP|1000 x");
        make("0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|8 poly|90 2|70 129|10 1 1 0|10 9 9 0");
        make("0 TEXT|8 text|10 0 0 0|40 2|1 Achse 7|50 1.0471975511965976");
        make("0 POINT|8 sheet|67 1|10 0 0 0");
        make("0 BLOCK|2 B|10 0 0 0");
        make("0 POINT|8 inblock|10 0 0 0");
        make("0 ENDBLK");
    }
    std::string find(std::string_view filter)
    {
        std::vector<ObjectId> found;
        if (!selectAll(*drawing, makeChain(*drawing, filter).get(), found)) return "malformed";
        std::string names;
        for (const ObjectId id : found) names += std::string(record(id).layer()) + " ";
        return names;
    }
};

} // namespace

TEST(Selection, TakesTheWholeDrawingNewestFirst)
{
    Selection s;
    EXPECT_EQ(s.find(""), "sheet text poly large small line ");
}

TEST(Selection, TestsGroupsPatternsAndDefaults)
{
    Selection s;
    struct Case
    {
        std::string_view filter, found;
    };
    constexpr Case cases[] = {
        {"0 CIRCLE", "large small "},
        {"0 circle", "large small "},
        {"0 *LINE,TEXT", "text poly line "},
        {"0 CIRCLE|8 L*", "large "},
        {"8 LINE,Poly", "poly line "},
        {"62 256|0 CIRCLE", "large small "},
        {"62 1", "line "},
        {"6 BYLAYER|0 LINE", "line "},
        {"67 1", "sheet "},
        {"410 Layout1", "sheet "},
        {"410 Model|0 POINT", ""},
        {"1 Achse #", "text "},
        {"50 1.0471975511965976", "text "},
        {"210 0 0 1|0 LINE", "line "},
        {"-3|1001 A*", "large "},
        {"0 CIRCLE|-3|1001 OTHER", ""},
        {"-4 >|40 2|0 CIRCLE", "large small "},
        {"-4 <=|40 2.5", "text small "},
        {"-4 /=|8 line|0 *LINE", "poly "},
        {"-4 &|70 1|0 LWPOLYLINE", "poly "},
        {"-4 &=|70 129", "poly "},
        {"-4 &=|70 3|0 LWPOLYLINE", ""},
        {"-4 >,<,*|10 4 61 0|0 CIRCLE", "large small "},
        {"-4 *,*,<>|10 0 0 0|0 CIRCLE", "large "},
        {"10 9 9 0", "poly "},
        {"-4 <or|0 LINE|-4 <AND|0 CIRCLE|-4 <|40 10|-4 AND>|-4 OR>", "small line "},
        {"-4 <NOT|0 CIRCLE,POINT|-4 NOT>", "text poly line "},
        {"-4 <XOR|0 CIRCLE|8 large|-4 XOR>", "small "}};
    for (const Case& c : cases) EXPECT_EQ(s.find(c.filter), c.found) << c.filter;
}

TEST(Selection, RefusesMalformedFilters)
{
    Selection s;
    for (const std::string_view bad :
         {"-4 <OR|0 LINE", "0 LINE|-4 OR>", "-4 <OR|0 LINE|-4 AND>", "-4 <NOT|0 A|0 B|-4 NOT>",
          "-4 <XOR|0 A|-4 XOR>", "-4 <AND|-4 AND>", "-4 ?|40 1", "-4 >", "-4 &|40 1", "-4 >|8 x",
          "-4 >|-4 <|40 1", "-4 <<|10 0 0 0", "-4 >,>,>,>|10 0 0 0", "5000"})
        EXPECT_EQ(s.find(bad), "malformed") << bad;
    std::string open;
    for (int i = 0; i < 5000; ++i) open += "-4 <AND|";
    EXPECT_EQ(s.find(open + "0 LINE"), "malformed");
}
