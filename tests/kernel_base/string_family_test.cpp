// SPDX-License-Identifier: LicenseRef-ORVALD
// What LISP cannot reach of the string family: laws over random texts, texts with units that LISP
// cannot hold, time that grows with the length, dates in several time zones.
#include "kex_values.h"

#include "kex/code_page.h"
#include "kex/date.h"
#include "kex/hex.h"
#include "kex/increment.h"
#include "kex/names.h"
#include "kex/search.h"
#include "kex/unit_text.h"
#include "kex/units.h"
#include "kex/uuid.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <set>

namespace {

using KEX::TextView;

/// Text of a few different units, so that occurrences overlap.
CKexString fewUnits(kextest::Random& random, int most)
{
    static constexpr ACHAR kUnits[] = {KT('a'), KT('b'), 0, 0xD83D, 0xDE00, 0x8000, 0x7FFF, 1};
    const int kinds = 1 + random.below(static_cast<int>(std::size(kUnits)));
    CKexString text;
    for (int i = random.below(most + 1); i > 0; --i) text += kUnits[random.below(kinds)];
    return text;
}

TEST(Search, FindsWhatAPlainSearchFinds)
{
    kextest::Random random(3);
    for (int round = 0; round < 20000; ++round) {
        const CKexString text = fewUnits(random, 60), part = fewUnits(random, 6);
        const auto from = static_cast<std::size_t>(random.below(64));
        const std::size_t plain =
            part.isNull() ? TextView::npos : text.view().find(part.view(), from);
        ASSERT_EQ(KEX::findText(text, part, from), plain) << text.toUtf8() << "|" << part.toUtf8();
        ASSERT_EQ(KEX::findUnit(text, part[0], from), text.view().find(part[0], from));
    }
}

TEST(Search, TakesTimeByTheSumOfTheLengths)
{
    const auto start = std::chrono::steady_clock::now();
    const CKexString letters(KT('a'), 1000000);
    for (const int length : {2, 1000, 400000}) {
        const CKexString same(KT('a'), length);
        EXPECT_EQ(letters.find(same + KT('b')), -1);
        EXPECT_EQ((letters + KT('b')).find(same + KT('b')), 1000000 - length);
        EXPECT_EQ(letters.find(same.mid(1) + KT("ba")), -1);
        EXPECT_EQ(letters.find(CKexString(KT("b")) + same), -1);
        CKexString text = letters;
        EXPECT_EQ(text.replace(same + KT('b'), KT("x")).len(), 1000000);
    }
    CKexString set;
    for (int i = 0; i < 50000; ++i) set += static_cast<ACHAR>(i + 256);
    EXPECT_EQ(letters.findOneOf(set), -1);
    EXPECT_EQ(CKexString(set).span(set), 50000);
    // A search by every start would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Replace, IsSplitAndJoinAndStopsBeforeMemoryIsOut)
{
    kextest::Random random(4);
    for (int round = 0; round < 2000; ++round) {
        const CKexString text = fewUnits(random, 40), fresh = fewUnits(random, 3);
        CKexArrayTempl<CKexString> parts;
        KEX::strTok(text, KT("b"), parts, true);
        CKexString joined;
        for (int i = 0; i < parts.length(); ++i) joined += i == 0 ? parts[i] : fresh + parts[i];
        ASSERT_EQ(CKexString(text).replace(KT("b"), fresh), joined);
        const CKexString once = text.reverse(), twice = once.reverse();
        ASSERT_EQ(once.reverse(), twice);
    }
    CKexString text(KT('a'), 100000);
    EXPECT_THROW(text.replace(KT("a"), CKexString(text)), std::length_error);
    EXPECT_EQ(text.len(), 100000);
}

TEST(Split, DropsEmptyPartsOnlyWhenAsked)
{
    for (const auto& [text, count] :
         {std::pair{KT(""), 0}, {KT(";"), 0}, {KT("a;;b;"), 2}, {KT(";a"), 1}}) {
        CKexArrayTempl<CKexString> parts;
        KEX::strTok(text, KT(";"), parts, false);
        EXPECT_EQ(parts.length(), count);
    }
}

TEST(Increment, CountsLikeRepeatedSteps)
{
    kextest::Random random(5);
    struct Case
    {
        const ACHAR* start;
        int steps;    // until letters become a word
        bool returns; // a width that digits outgrew does not come back
    };
    for (const auto& [start, steps, returns] : {Case{KT("7"), 2000, true},
                                                {KT("099"), 2000, false},
                                                {KT("Z"), 676, true},
                                                {KT("zy"), 1, true},
                                                {KT("AB"), 600, true},
                                                {KT("P-9"), 2000, true},
                                                {KT("(009)"), 2000, false},
                                                {KT("A1 b"), 600, true}}) {
        CKexString stepped = start;
        for (int n = 1; n <= steps; ++n) {
            KEX::str_increment(stepped, 1);
            CKexString once = start;
            ASSERT_EQ(KEX::str_increment(once, n), stepped) << n;
            ASSERT_TRUE(!returns || KEX::str_increment(once, -n) == start) << n;
        }
    }
    CKexString digits(KT('9'), 1000000);
    EXPECT_EQ(KEX::str_increment(digits, 1), CKexString(KT("1")) + CKexString(KT('0'), 1000000));
    EXPECT_EQ(KEX::str_increment(digits, std::numeric_limits<int>::min()).len(), 1000000);
}

TEST(Increment, PartsJoinToTheText)
{
    kextest::Random random(6);
    for (int round = 0; round < 3000; ++round) {
        CKexString text, joined;
        for (int i = 1 + random.below(10); i > 0; --i) {
            text += random.below(4) == 0 ? random.unit() : static_cast<ACHAR>(random.below(128));
        }
        CKexArrayTempl<CKexString> parts;
        ASSERT_TRUE(KEX::str_incr_parse(parts, text));
        for (const CKexString& part : parts) joined += part;
        ASSERT_EQ(joined, text);
    }
}

TEST(CodePages, EveryCharacterOfBothComesBack)
{
    std::set<ACHAR> seen;
    int missing = 0;
    for (ACHAR code = 1; code < 0x200; ++code) {
        ACHAR text[] = {code, 0};
        KEX::dosToWin(text);
        if (text[0] == KT('?') && code != KT('?')) {
            ++missing;
            continue;
        }
        EXPECT_TRUE(seen.insert(text[0]).second);
        KEX::winToDos(text);
        EXPECT_EQ(text[0], code);
    }
    EXPECT_EQ(missing, 31); // frames, blocks, the dotless i, the double underline
    for (ACHAR latin = 0xA0; latin <= 0xFF; ++latin) EXPECT_EQ(seen.count(latin), 1u);
    KEX::dosToWin(nullptr);
}

TEST(Names, AreCutBetweenCharacters)
{
    CKexString text(KT('a'), 254);
    text += KT("\xD83D\xDE00");
    EXPECT_EQ(KEX::str_name(text, KT(' ')).len(), 254);
    EXPECT_EQ(KEX::str_name(KT("\tA|B\t"), KT('_')), KT("_A_B_"));
}

TEST(UnitText, ReadsLengthsAndRefusesTheRest)
{
    struct Case
    {
        const char* text;
        double millimetres;
    };
    for (const auto& [text, millimetres] : {Case{"1mm", 1.0},
                                            {"1 Cm", 10.0},
                                            {"1dm", 100.0},
                                            {"1m", 1000.0},
                                            {"1km", 1e6},
                                            {"1um", 1e-3},
                                            {"1 \xCE\xBCm", 1e-3},
                                            {"1\"", 25.4},
                                            {"1 FT", 304.8},
                                            {"1'", 304.8},
                                            {"1yd", 914.4},
                                            {"1 mi", 1609344.0},
                                            {".5 m", 500.0},
                                            {"5,mm", 5.0},
                                            {"+7", 7.0},
                                            {"- 1 1/2 cm", -15.0},
                                            {"-1' - 1\"", -330.2},
                                            {"1'1/2\"", 317.5},
                                            {"1,5'0,5\"", 469.9}}) {
        double length = 0.0;
        EXPECT_TRUE(KEX::str_to_unit(CKexString::fromUtf8(text), Kex::kUnitMillimetre, length))
            << text;
        EXPECT_NEAR(length, millimetres, 1e-9 * std::abs(millimetres)) << text;
    }
    for (const char* text :
         {"",       " ",     "mm",    "-",       "1.2.3",   "1.234,5", "1/0",
          "1.5/2",  "1/2/3", "1 2",   "1 2.5/3", "1e3",     "--1",     "1'6",
          "1'6\"x", "1''",   "1\"2'", "5 stk",   "1 mm mm", "1'-",     "\xC2\xB5m"}) {
        double length = 77.0;
        EXPECT_FALSE(KEX::str_to_unit(CKexString::fromUtf8(text), Kex::kUnitMillimetre, length))
            << text;
        EXPECT_EQ(length, 77.0);
    }
    double length = 0.0;
    EXPECT_FALSE(KEX::str_to_unit(CKexString(KT('9'), 1000000), 4, length));
    EXPECT_EQ(KEX::str_key_gd(CKexString(KT('9'), 1000)), 0.0);
    EXPECT_EQ(KEX::str_gd_key(1e308).len(), 309);
}

TEST(Bits, AreReversedHexadecimal)
{
    EXPECT_EQ(KEX::ltox(31, 8), KT("0000001F"));
    EXPECT_EQ(KEX::ltox(0x12345678, 2), KT("12345678"));
    kextest::Random random(7);
    for (int round = 0; round < 1000; ++round) {
        const auto value = static_cast<std::uint32_t>(random.from(0.0, 4294967295.0));
        EXPECT_EQ(KEX::bitsOf(KEX::bitString(value)), value);
        EXPECT_EQ(KEX::bitsOf(CKexString(KT("0X")) + KEX::ltox(value)), value);
    }
}

/// Sets the time zone for a scope.
class Zone
{
public:
    explicit Zone(const char* name) { ::setenv("TZ", name, 1); }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;
    ~Zone() { ::unsetenv("TZ"); }
};

TEST(Dates, FollowTheTimeZoneAndItsSummer)
{
    const Zone berlin("CET-1CEST,M3.5.0,M10.5.0/3");
    KEX::SystemTime time;
    ASSERT_TRUE(KEX::timeToSystemTime(time, 1719792000, true)); // 2024-07-01 00:00 UTC
    EXPECT_EQ(time, (KEX::SystemTime{2024, 7, 1, 2, 0, 0}));
    ASSERT_TRUE(KEX::timeToSystemTime(time, 1719792000, false));
    EXPECT_EQ(KEX::str_time(time), KT("00:00"));
    ASSERT_TRUE(KEX::timeToSystemTime(time, -1, true));
    EXPECT_EQ(KEX::str_date(time) + KT(' ') + KEX::str_time(time), KT("01.01.1970 00:59"));
    double date = 0.0;
    ASSERT_TRUE(KEX::timeToAcadCDate(date, 0));
    EXPECT_EQ(date, 2440588.0 + 1.0 / 24.0);
}

TEST(Dates, ComeBackToTheSecond)
{
    for (const char* zone : {"UTC", "CET-1CEST,M3.5.0,M10.5.0/3", "NST3:30NDT,M3.2.0,M11.1.0"}) {
        const Zone here(zone);
        for (std::int64_t moment = -20000000000; moment < 100000000000; moment += 1234567891) {
            double date = 0.0;
            std::int64_t back = 0;
            std::tm parts = {};
            KEX::SystemTime time;
            ASSERT_TRUE(KEX::timeToAcadCDate(date, moment));
            ASSERT_TRUE(KEX::acadCDateToTime(back, date));
            EXPECT_EQ(back, moment) << zone;
            ASSERT_TRUE(KEX::acadCDateToTm(parts, date));
            ASSERT_TRUE(KEX::timeToSystemTime(time, moment, true));
            EXPECT_EQ(KEX::tmToSystemTime(parts), time);
        }
    }
}

TEST(Dates, RefuseWhatIsNoDate)
{
    std::int64_t seconds = 77;
    for (const double date :
         {0.0, -1e300, 1e300, 1721425.0, 5373485.0, std::numeric_limits<double>::quiet_NaN(),
          std::numeric_limits<double>::infinity()}) {
        EXPECT_FALSE(KEX::acadCDateToTime(seconds, date)) << date;
    }
    EXPECT_EQ(seconds, 77);
    std::tm first = {}, last = {};
    ASSERT_TRUE(KEX::acadCDateToTm(first, 1721426.0));
    ASSERT_TRUE(KEX::acadCDateToTm(last, 5373484.99));
    EXPECT_EQ(KEX::str_date(KEX::tmToSystemTime(first)), KT("01.01.0001"));
    EXPECT_EQ(KEX::str_date(KEX::tmToSystemTime(last)), KT("31.12.9999"));
    EXPECT_EQ(first.tm_wday, 1); // a Monday
    EXPECT_EQ(last.tm_yday, 364);
    KEX::SystemTime time;
    for (const bool local : {false, true}) {
        EXPECT_FALSE(KEX::timeToSystemTime(time, std::numeric_limits<std::int64_t>::min(), local));
        EXPECT_FALSE(KEX::timeToSystemTime(time, std::numeric_limits<std::int64_t>::max(), local));
    }
}

TEST(Identifiers, AreRandomAndOfVersionFour)
{
    std::set<CKexString> seen;
    for (int i = 0; i < 1000; ++i) {
        const CKexString id = kexStrUuidCreate();
        ASSERT_EQ(id.len(), 36);
        for (int at = 0; at < 36; ++at) {
            const bool dash = at == 8 || at == 13 || at == 18 || at == 23;
            ASSERT_EQ(id[at] == KT('-'), dash);
            ASSERT_TRUE(dash || (KEX::hexDigit(id[at]) >= 0 && id[at] == KEX::lowerUnit(id[at])));
        }
        EXPECT_EQ(id[14], KT('4'));
        EXPECT_GE(CKexString(KT("89ab")).find(id[19]), 0);
        EXPECT_TRUE(seen.insert(id).second);
    }
}

} // namespace
