// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers in files: shortest text that reads back.
#include "number_out.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

using orvald::dxf::writeReal;

namespace {

std::string written(double value)
{
    char text[orvald::dxf::kRealRoom];
    return std::string(text, writeReal(text, value));
}

std::size_t digits(std::string_view text)
{
    text = text.substr(0, text.find_first_of("eE"));
    std::string kept;
    for (const char c : text)
        if (c >= '0' && c <= '9') kept += c;
    kept.erase(0, kept.find_first_not_of('0'));
    while (!kept.empty() && kept.back() == '0') kept.pop_back();
    return kept.size();
}

} // namespace

TEST(Numbers, AreWrittenAsFilesShowThem)
{
    EXPECT_EQ(written(0.0), "0.0");
    EXPECT_EQ(written(-0.0), "-0.0");
    EXPECT_EQ(written(1.0), "1.0");
    EXPECT_EQ(written(-12.25), "-12.25");
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(0.000001), "0.000001");
    EXPECT_EQ(written(0.0000001), "1.0E-07");
    EXPECT_EQ(written(100000.0), "100000.0");
    EXPECT_EQ(written(1e20), "1.0E+20");
    EXPECT_EQ(written(1.5e-300), "1.5E-300");
    EXPECT_EQ(written(0.1 + 0.2), "0.30000000000000004");
}

TEST(Numbers, ReadBackToTheSameBitsInTheFewestDigits)
{
    std::mt19937_64 random(11);
    const auto check = [](double value) {
        if (!std::isfinite(value)) return;
        const std::string text = written(value);
        double back = 0.0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_TRUE(error == std::errc() && end == text.data() + text.size()) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << text;
        ASSERT_NE(text.find('.'), std::string::npos) << text;
        char shortest[64];
        const char* last =
            std::to_chars(shortest, shortest + 64, value, std::chars_format::scientific).ptr;
        ASSERT_EQ(digits(text), digits({shortest, static_cast<std::size_t>(last - shortest)}))
            << text;
    };
    for (int i = 0; i < 300000; ++i) {
        check(std::bit_cast<double>(random()));                     // any double
        check(static_cast<double>(random() % 2000000000) / 1000.0); // what people draw
        check(static_cast<double>(static_cast<std::int64_t>(random() >> 20)) * 1e-6);
    }
}
