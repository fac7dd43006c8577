// SPDX-License-Identifier: LicenseRef-ORVALD
// Chains of result buffers: building, the two dotted forms, LISP forms of the kernel's types,
// printing.
#include "kex_values.h"
#include "test_host.h"

#include "kex/mk_resbuf.h"
#include "kex/rb_tokens.h"

#include <cstring>
#include <limits>
#include <sstream>

namespace {

using KEX::CSmartResbuf;
using KEX::RbBuilder;
using kextest::lispText;

/// A chain from its marks: "(" begin, ")" end, "." dot, anything else a text.
CSmartResbuf chainOf(const std::string& marks)
{
    RbBuilder builder;
    std::istringstream words(marks);
    for (std::string word; words >> word;) {
        if (word == "(") builder.begin();
        else if (word == ")") builder.end();
        else if (word == ".") builder.endDotted();
        else builder.text(CKexString::fromUtf8(word));
    }
    return builder.take();
}

std::string marksOf(const resbuf* chain)
{
    std::string marks;
    for (; chain != nullptr; chain = chain->rbnext) {
        if (!marks.empty()) marks += ' ';
        switch (chain->restype) {
        case RTLB: marks += '('; break;
        case RTLE: marks += ')'; break;
        case RTDOTE: marks += '.'; break;
        default: marks += KEX::toUtf8(chain->resval.rstring);
        }
    }
    return marks;
}

struct DotCase
{
    const char *given, *closing, *middle;
};
const DotCase kDotCases[] = {
    {"a b", "a b", "a b"},
    {"( a b )", "( a b )", "( a b )"},
    {"( a . b )", "( a b .", "( a . b )"},
    {"( a b .", "( a b .", "( a . b )"},
    {"( a b . c )", "( a b c .", "( a b . c )"},
    {"( ( k v . ( l w . )", "( ( k v . ( l w . )", "( ( k . v ) ( l . w ) )"},
    {"( ( a b . c ) )", "( ( a b c . )", "( ( a b . c ) )"},
    {"( ( a b . c )", "( ( a b . c )",
     "( ( a . b ) c )"}, // not ((a b . c)): that would lack an end
    {"( a . ( b c ) )", "( a ( b c ) .", "( a . ( b c ) )"},
    {"( a ( b c . .", "( a ( b c . .", "( a . ( b . c ) )"},
    {"( k v . ( i . s )", "( k v . ( i s .", "( k . v ) ( i . s )"}, // two producers, one chain
    {"( ( i . s ) ( k v . )", "( ( i s . ( k v . )", "( ( i . s ) ( k . v ) )"},
    {"x ( a b . y", "x ( a b . y", "x ( a . b ) y"},
};

TEST(DottedForms, AreToldApartAndConverted)
{
    for (const DotCase& test : kDotCases) {
        SCOPED_TRACE(test.given);
        for (const bool inMiddle : {false, true}) {
            CSmartResbuf chain = chainOf(test.given);
            EXPECT_TRUE(KEX::rbBalanced(chain));
            ASSERT_TRUE(KEX::rbDotConvert(chain, inMiddle));
            EXPECT_EQ(marksOf(chain), inMiddle ? test.middle : test.closing);
        }
        std::string read;
        const CSmartResbuf given = chainOf(test.given);
        for (KEX::RbTokens tokens(given); tokens.node() != nullptr; tokens.next()) {
            using Token = KEX::RbTokens::Token;
            const Token token = tokens.token();
            if (!read.empty()) read += ' ';
            read += token == Token::begin       ? "("
                    : token == Token::end       ? ")"
                    : token == Token::endDotted ? "."
                                                : KEX::toUtf8(tokens.node()->resval.rstring);
        }
        EXPECT_EQ(read, test.closing);
    }
}

TEST(DottedForms, RandomListsComeBackFromEitherForm)
{
    kextest::Random random(8);
    for (int round = 0; round < 3000; ++round) {
        // In the closing form, made so that every list is well-formed.
        RbBuilder builder;
        std::vector<int> counts;
        for (int step = 0; step < 30; ++step) {
            const int choice = random.below(6);
            if (choice == 0) {
                builder.begin();
                counts.push_back(0);
                continue;
            }
            if (choice == 1 && !counts.empty()) {
                if (counts.back() >= 2 && random.below(2) == 0) builder.endDotted();
                else builder.end();
                counts.pop_back();
            } else {
                builder.text(KT("v"));
            }
            if (!counts.empty()) ++counts.back();
        }
        for (; !counts.empty(); counts.pop_back()) builder.end();
        CSmartResbuf chain = builder.take();
        const std::string before = marksOf(chain);
        ASSERT_TRUE(KEX::rbDotConvert(chain, true));
        ASSERT_TRUE(KEX::rbDotConvert(chain, false));
        ASSERT_EQ(marksOf(chain), before);
    }
}

TEST(DottedForms, UnevenChainsAreRefusedAndLeftAlone)
{
    for (const char* marks : {"(", ")", "( a", "a )", ".", "( .", "( . a )", "( a . )",
                              "( a . b c )", "( a . b . c )", "a . b", "( ( a )"}) {
        CSmartResbuf chain = chainOf(marks);
        EXPECT_FALSE(KEX::rbBalanced(chain)) << marks;
        EXPECT_FALSE(KEX::rbDotConvert(chain, false)) << marks;
        EXPECT_EQ(marksOf(chain), marks);
        EXPECT_EQ(KEX::RbTokens(chain).token(), KEX::RbTokens::Token::none);
    }
}

TEST(Chain, SkipsAndCountsAndWraps)
{
    const CSmartResbuf chain = chainOf("( a ( b c . ) d");
    EXPECT_EQ(KEX::rbLength(chain), 8);
    const resbuf* behind = KEX::rbSkip(chain);
    ASSERT_NE(behind, nullptr);
    EXPECT_EQ(KEX::toUtf8(behind->resval.rstring), "d");
    EXPECT_EQ(KEX::rbSkip(behind), nullptr);
    EXPECT_EQ(marksOf(KEX::rbToList(chainOf("( k v ."))), "( ( k v . )"); // a pair is wrapped too
    EXPECT_EQ(KEX::rbToList(CSmartResbuf()).get(), nullptr);
}

TEST(Chain, CopiesEveryKindOfNode)
{
    char bytes[] = {1, 2, 3};
    const ads_binary binary = {3, bytes};
    const ads_point point = {1, 2, 3};
    const CSmartResbuf chain(acutBuildList(RTSTR, KT("Länge"), RTREAL, 0.1, RTSHORT, -5, RTLONG,
                                           70000, RT3DPOINT, point, 8, KT("layer"), 310, &binary,
                                           RTNIL, RTNONE));
    const CSmartResbuf copy = KEX::rbCopyAll(chain);
    EXPECT_EQ(lispText(copy), lispText(chain));
    EXPECT_EQ(lispText(copy),
              "\"Länge\" 0.1 -5 70000 (1.0 2.0 3.0) (8 . \"layer\") (310 nil ;|3 bytes|;) nil");
    const resbuf* node = copy;
    while (node->restype != 310) node = node->rbnext;
    EXPECT_EQ(std::memcmp(node->resval.rbinary.buf, bytes, 3), 0);
    EXPECT_NE(node->resval.rbinary.buf, bytes);
}

TEST(LispForms, AreThoseOfTheKernel)
{
    const CKexVertex vertex({1, 2}, {3, 4, 5}, 0.5);
    EXPECT_EQ(lispText(KEX::mkResbuf(vertex)), "(1.0 2.0 0.0) (3.0 4.0 5.0) 0.5");
    const CKexVertexArray list{vertex, vertex};
    const std::string segment = "((1.0 2.0 0.0) (3.0 4.0 5.0) 0.5)";
    EXPECT_EQ(lispText(KEX::rbToList(KEX::mkResbuf(list))), "(" + segment + " " + segment + ")");
    const CKexArrayTempl<CKexVertexArray> lists{list, CKexVertexArray(), CKexVertexArray{vertex}};
    const std::string vll = "(" + segment + " " + segment + ") nil (" + segment + ")";
    EXPECT_EQ(lispText(KEX::mkResbuf(lists)), vll);
    const CKexArrayTempl<CKexArrayTempl<CKexVertexArray>> regions{lists, lists};
    EXPECT_EQ(lispText(KEX::mkResbuf(regions)), "(" + vll + ") (" + vll + ")");

    CKexVertexArrayEx extended(CKexVertexArray{vertex, vertex});
    extended[1].data = chainOf("( a b .");
    const CKexVertexArrayEx copy = extended;
    EXPECT_EQ(lispText(KEX::mkResbuf(copy)), "((1.0 2.0 0.0) (3.0 4.0 5.0) 0.5 nil) "
                                             "((1.0 2.0 0.0) (3.0 4.0 5.0) 0.5 (\"a\" . \"b\"))");
    EXPECT_EQ(copy.vertices(), list);

    CKexMapTempl<CKexString, CKexString> map;
    EXPECT_EQ(KEX::mkResbuf(map).get(), nullptr);
    map.set(KT("b"), KT("2"));
    map.set(KT("A"), KT("1"));
    EXPECT_EQ(lispText(KEX::mkResbuf(map)), R"(("A" . "1") ("b" . "2"))");
    EXPECT_EQ(marksOf(KEX::mkResbuf(map)), "( A 1 . ( b 2 .");
    CKexMapTempl<CKexString, CKexArrayTempl<CKexString>> texts;
    texts.set(KT("k"), {CKexString(KT("a")), CKexString(KT("b"))});
    texts.set(KT("none"), {});
    EXPECT_EQ(lispText(KEX::mkResbuf(texts)), R"(("k" "a" "b") ("none"))");

    EXPECT_EQ(lispText(KEX::mkResbuf(CKexArrayTempl<int>{1, 70000})), "1 70000");
    EXPECT_EQ(lispText(KEX::mkResbuf({1.0, 2.0, 0.5, 1e300})), "1.0 2.0 0.5 1e+300");
    EXPECT_EQ(lispText(KEX::mkResbuf(CKexMatrix3d::translation({7, 8, 9}))),
              "(1.0 0.0 0.0 7.0) (0.0 1.0 0.0 8.0) (0.0 0.0 1.0 9.0) (0.0 0.0 0.0 1.0)");
    const std::int32_t name[2] = {5, 0};
    EXPECT_EQ(lispText(KEX::mkResbuf(CKexEnameArray{CKexEname(name), CKexEname()})),
              "nil ;|entity 5,0|; nil");
}

TEST(Printer, WritesWhatLispCanReadAgain)
{
    testHost().entities = {0x2F};
    const std::int32_t living[2] = {0x2F, 0};
    const std::int32_t gone[2] = {0x30, 0};
    RbBuilder builder;
    builder.text(KT("a\"b\\c\nd\te\x1b\x01")).real(1.0).real(-0.5).real(1e22);
    builder.real(std::numeric_limits<double>::infinity()).t().nil().point2d(1, 2);
    builder.name(KEX::CAdsName(living)).name(KEX::CAdsName(gone));
    builder.begin().begin().end().integer(-7).begin().text(KT("k")).integer(1).endDotted().end();
    EXPECT_EQ(KEX::rbPrint(builder.take()).toUtf8(), R"("a\"b\\c\nd\te\e\001"
1.0
-0.5
1e+22
nil ;|inf|;
T
nil
(1.0 2.0)
(handent "2F")
nil ;|entity 48,0|;
(() -7 ("k" . 1))
)");
    testHost().entities.clear();
    EXPECT_EQ(KEX::rbPrint(nullptr), KT(""));
}

TEST(Printer, SurvivesEveryShapeOfChain)
{
    kextest::Random random(9);
    for (int round = 0; round < 2000; ++round) {
        CSmartResbuf chain;
        RbBuilder builder;
        for (int i = random.below(10); i > 0; --i) {
            const int codes[] = {RTLB,     RTLE, RTDOTE, RTNIL, RTSTR, RTVOID, RTPICKS,
                                 RTRESBUF, 0,    8,      310,   1071,  -3,     4999};
            builder.adopt(
                CSmartResbuf(acutNewRb(codes[random.below(static_cast<int>(std::size(codes)))])));
        }
        const CKexString text = KEX::rbPrint(builder.take());
        ASSERT_TRUE(text.isNull() || text.endsWith(KT("\n")));
    }
    EXPECT_EQ(lispText(chainOf("( a ) )")), "(\"a\") ;|list end without a beginning|;");
    EXPECT_EQ(lispText(chainOf("( a (")), "(\"a\" ( ;|lists without an end: 2|;");
}

} // namespace
