// SPDX-License-Identifier: LicenseRef-ORVALD
// Compressed bytes and PNG files come back as they were.
#include "deflate.h"
#include "png.h"
#include "png_reader.h"

#include <gtest/gtest.h>
#include <random>

namespace orvald::picture {
namespace {

std::string randomBytes(std::size_t count, int values, std::uint32_t seed)
{
    std::mt19937 engine(seed);
    std::string out;
    for (std::size_t i = 0; i < count; ++i) out.push_back(char(engine() % std::uint32_t(values)));
    return out;
}

TEST(Compression, EveryKindOfDataComesBack)
{
    // Counts like Fibonacci numbers want words longer than the format allows.
    std::string steep;
    std::size_t a = 1, b = 1;
    for (int symbol = 0; symbol < 26; ++symbol) {
        for (std::size_t i = 0; i < a; ++i) steep.push_back(char(symbol * 7));
        b += a;
        std::swap(a, b);
    }
    std::shuffle(steep.begin(), steep.end(), std::mt19937(5));
    std::string far = randomBytes(32768, 256, 3);
    far += far + randomBytes(2, 256, 4) + far.substr(0, 300); // at and beyond the window
    const std::pair<const char*, std::string> cases[] = {
        {"nothing", ""},
        {"one byte", "x"},
        {"two bytes", "ab"},
        {"a run", std::string(100000, '\0')},
        {"runs of 257 to 260", std::string(257, 'a') + std::string(258, 'b') +
                                   std::string(259, 'c') + std::string(260, 'd')},
        {"noise", randomBytes(200000, 256, 1)},
        {"noise of four letters", randomBytes(200000, 4, 2)},
        {"steep counts", steep},
        {"far repetitions", far},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        ASSERT_EQ(test::unzip(zlibCompress(bytes)), bytes);
    }
    EXPECT_LT(zlibCompress(std::string(1'000'000, ' ')).size(), 1200u);
    EXPECT_LT(zlibCompress(randomBytes(100000, 2, 6)).size(), 100000u / 6);
}

TEST(Png, FewAndManyColoursComeBack)
{
    for (const auto& [width, height, colours] :
         {std::tuple{1, 1, 1}, {3, 2, 4}, {64, 40, 256}, {64, 40, 257}, {33, 50, 5000}}) {
        SCOPED_TRACE(colours);
        std::vector<std::uint8_t> pixels;
        for (int i = 0; i < width * height; ++i) {
            const int c = i % colours;
            pixels.insert(pixels.end(), {std::uint8_t(c), std::uint8_t(c / 256), std::uint8_t(7)});
        }
        const test::Image image = test::readPng(pngFile(width, height, pixels));
        ASSERT_EQ(image.width, width);
        ASSERT_EQ(image.height, height);
        for (std::size_t i = 0; i < image.pixels.size(); ++i)
            ASSERT_EQ(image.pixels[i], std::uint32_t(pixels[3 * i] << 16 | pixels[3 * i + 1] << 8 |
                                                     pixels[3 * i + 2]));
    }
}

} // namespace
} // namespace orvald::picture
