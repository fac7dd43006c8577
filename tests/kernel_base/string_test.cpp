// SPDX-License-Identifier: LicenseRef-ORVALD
// Texts: case tables, UTF-8, searching, changing, HTML, formatting.
#include "kex_values.h"

#include "kex/map.h"

#include <limits>

namespace {

CKexString text(const char* utf8) { return CKexString::fromUtf8(utf8); }

TEST(CaseTables, AreInversesOverEveryUnit)
{
    int pairs = 0;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const auto unit = static_cast<ACHAR>(code);
        const ACHAR upper = KEX::upperUnit(unit);
        const ACHAR lower = KEX::lowerUnit(unit);
        ASSERT_TRUE(upper == unit || lower == unit)
            << code; // never both a capital and a small letter
        ASSERT_EQ(KEX::upperUnit(upper), upper) << code;
        ASSERT_EQ(KEX::lowerUnit(lower), lower) << code;
        const bool finalSigma = code == 0x03C2;
        ASSERT_TRUE(upper == unit || finalSigma || KEX::lowerUnit(upper) == unit) << code;
        ASSERT_TRUE(lower == unit || KEX::upperUnit(lower) == unit) << code;
        if (lower != unit) ++pairs;
    }
    EXPECT_GT(pairs, 600);
}

TEST(CaseTables, KnowTheLettersOfOurUsers)
{
    struct Case
    {
        const char *small, *capital;
    };
    for (const auto& [small, capital] : {
             Case{"straße 12µm",
                  "STRAßE 12µM"}, // one unit stays one unit, and µ is a sign of its own
             {"äöüéèçñøåæþ÷", "ÄÖÜÉÈÇÑØÅÆÞ÷"},
             {"ÿłőžšđĳ", "ŸŁŐŽŠĐĲ"},
             {"άέήώαβγω", "ΆΈΉΏΑΒΓΩ"},
             {"жщяёђџґ", "ЖЩЯЁЂЏҐ"},
             {"ạệự", "ẠỆỰ"},
             {"ıſ", "ıſ"}, // Turkish i and long s would not come back
         }) {
        EXPECT_EQ(text(small).makeUpper(), text(capital));
        EXPECT_EQ(text(capital).makeLower(), text(small));
    }
    EXPECT_EQ(text("ς").makeUpper(), text("Σ"));
}

TEST(Comparison, WithoutCaseIsAnOrderByCapitals)
{
    EXPECT_EQ(KEX::compareNoCase(KT("Kex_äß"), KT("KEX_Äß")), 0);
    EXPECT_LT(KEX::compareNoCase(KT("a"), KT("B")), 0);
    EXPECT_LT(KEX::compareNoCase(KT("Z"), KT("_")),
              0); // after capitalising, "_" is above the letters
    EXPECT_LT(KEX::compareNoCase(KT("ab"), KT("ABC")), 0);
    EXPECT_EQ(KEX::compareNoCase(nullptr, KT("")), 0);
    CKexMapTempl<CKexString, int> map;
    map.set(KT("Two"), 2);
    map.set(KT("one"), 1);
    map.set(KT("TWO"), 3);
    ASSERT_EQ(map.length(), 2);
    EXPECT_EQ(map.begin()->first, KT("one"));
    EXPECT_EQ((++map.begin())->first, KT("Two")); // the first spelling stays
    EXPECT_EQ(*map.find(KT("two")), 3);
}

TEST(Utf8, BringsEveryTextBack)
{
    kextest::Random random(1);
    for (int round = 0; round < 2000; ++round) {
        CKexString units;
        for (int i = random.below(12); i > 0; --i) {
            const int kind = random.below(4); // ASCII, surrogates, any unit
            const int code = kind == 0   ? random.below(128)
                             : kind == 1 ? 0xD800 + random.below(0x800)
                                         : random.below(0x10000);
            units += static_cast<ACHAR>(code);
        }
        const std::optional<CKexString> back = CKexString::fromUtf8Strict(units.toUtf8());
        ASSERT_TRUE(back.has_value());
        ASSERT_EQ(*back, units);
    }
}

TEST(Utf8, RefusesWhatNoTextGives)
{
    for (const char* bytes :
         {"\x80", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xF5\x80\x80\x80",
          "\xF4\x90\x80\x80", "\xFF", "a\xE2\x82", "\xED\xA0\xBD\xED\xB8\x80"}) {
        EXPECT_FALSE(CKexString::fromUtf8Strict(bytes).has_value())
            << testing::PrintToString(bytes);
        EXPECT_GE(CKexString::fromUtf8(bytes).find(ACHAR(0xFFFD)), 0);
    }
    EXPECT_EQ(CKexString::fromUtf8("a\xFFz"), KT("a\uFFFDz"));
}

TEST(String, PositionsOutsideAreHarmless)
{
    CKexString s = KT("Abwicklung");
    EXPECT_EQ(s[-1], 0);
    EXPECT_EQ(s[10], 0);
    EXPECT_FALSE(s.setAt(10, KT('x')));
    EXPECT_EQ(s.mid(2), KT("wicklung"));
    EXPECT_EQ(s.mid(-5, 2), KT("Ab"));
    EXPECT_EQ(s.mid(10), KT(""));
    EXPECT_EQ(s.mid(std::numeric_limits<int>::max(), -1), KT(""));
    EXPECT_EQ(s.mid(3, std::numeric_limits<int>::max()), KT("icklung"));
    EXPECT_EQ(s.find(KT("w"), 99), -1);
    EXPECT_EQ(s.find(KT("")), -1);
    EXPECT_EQ(CKexString(static_cast<const ACHAR*>(nullptr)).len(), 0);
}

TEST(String, ChangesInPlace)
{
    EXPECT_EQ(CKexString(KT(" \t\r\n a b \x01")).trim(), KT("a b"));
    EXPECT_EQ(CKexString(KT("\u00A0a\u00A0")).trim().len(), 3);
    EXPECT_EQ(CKexString(KT(" \t ")).trim(), KT(""));
    EXPECT_EQ(CKexString(KT("aXXbXX")).replace(KT("XX"), KT("-")), KT("a-b-"));
    EXPECT_EQ(CKexString(KT("aaa")).replace(KT("aa"), KT("b")), KT("ba"));
    EXPECT_EQ(CKexString(KT("aaa")).replace(KT(""), KT("b")), KT("aaa"));
    EXPECT_EQ(CKexString(KT("12")).lfill(5, KT('0')), KT("00012"));
    EXPECT_EQ(CKexString(KT("12")).rfill(4), KT("12  "));
    EXPECT_EQ(CKexString(KT("12345")).lfill(3).rfill(-7), KT("12345"));
    EXPECT_EQ(CKexString(KT("lager")).reverse(), KT("regal"));
    EXPECT_EQ(CKexString(KT("aab")).span(KT("a")), 2);
    EXPECT_EQ(CKexString(KT("aab")).findOneOf(KT("xb")), 2);
}

TEST(Html, ComesBackAndLeavesTheRestAlone)
{
    EXPECT_EQ(text("a<b> & \"c' ä").escapeHtml(), text("a&lt;b&gt; &amp; &quot;c&#39; ä"));
    EXPECT_EQ(text("ä€\xF0\x9F\x98\x80~").escapeHtml(true), KT("&#228;&#8364;&#128512;~"));
    EXPECT_EQ(text("&Auml;&szlig;&deg;&euro;&nbsp;&apos;&#x41;&#65;").unEscapeHtml(),
              text("Äß°€\u00A0'AA"));
    for (const char* same :
         {"&", "&;", "&x;", "&#;", "&#xZ;", "&#1114112;", "&amp", "&AUML;", "&#0;"}) {
        EXPECT_EQ(text(same).unEscapeHtml(), text(same));
    }
    kextest::Random random(2);
    for (int round = 0; round < 500; ++round) {
        CKexString units;
        for (int i = 0; i < 8; ++i)
            units += static_cast<ACHAR>(random.below(random.below(3) == 0 ? 0x10000 : 128));
        if (units.find(ACHAR(0)) >= 0) continue; // no reference stands for it
        for (const bool all : {false, true}) {
            ASSERT_EQ(CKexString(units).escapeHtml(all).unEscapeHtml(), units);
        }
    }
}

TEST(Format, FillsFields)
{
    using KEX::format;
    EXPECT_EQ(format(KT("{}({})x{{}}"), 3, CKexString(KT("a"))), KT("3(a)x{}"));
    EXPECT_EQ(format(KT("{:x} {:X} {:08X}"), 0xC0000005u, 255, -1), KT("c0000005 FF FFFFFFFF"));
    EXPECT_EQ(format(KT("{:>7} {:7} {:8.3f} {:9.5f} {}"), KT("Name"), 12, 1.0 / 3.0, 2.5, KT("z")),
              KT("   Name      12    0.333   2.50000 z"));
    EXPECT_EQ(format(KT("{:<5}|{:05}|{:6.1}"), 42, -42, -0.25), KT("42   |-0042|  -0.2"));
    EXPECT_EQ(format(KT("{} {} {}"), 0.1, 1e300, -0.0), KT("0.1 1e+300 -0"));
    EXPECT_EQ(format(KT("{:.2e} {}"), 12345.0, KT('c')), KT("1.23e+04 c"));
    EXPECT_EQ(format(KT("{} {}"), 1), KT("1 ")); // a missing value is left out
    EXPECT_EQ(format(KT("{:q} {"), 1), KT("{:q} {"));
    EXPECT_EQ(format(KT("{:.400f}"), 1e308).len(), 309 + 1 + 400);
    EXPECT_EQ(format(KT("{:99999}"), 1).len(), 400);
}

} // namespace
