// SPDX-License-Identifier: LicenseRef-ORVALD
// Pictures of few colours are written with a palette of them, which is smaller by far; others as
// true colours, each row predicted from the row above where that makes it quieter.
#include "png.h"

#include "deflate.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace orvald::picture {

namespace {

constexpr std::array<std::uint32_t, 256> kCrc = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t c = i;
        for (int bit = 0; bit < 8; ++bit) c = (c & 1) != 0 ? 0xEDB88320u ^ c >> 1 : c >> 1;
        table[i] = c;
    }
    return table;
}();

void appendNumber(std::string& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(char(value >> shift & 255));
}

void appendChunk(std::string& out, const char* type, const std::string& data)
{
    appendNumber(out, std::uint32_t(data.size()));
    const std::size_t start = out.size();
    out.append(type, 4).append(data);
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = start; i < out.size(); ++i)
        crc = kCrc[(crc ^ std::uint8_t(out[i])) & 255] ^ crc >> 8;
    appendNumber(out, ~crc);
}

// The colours of a picture in the order of their first pixel, and their numbers.
class Palette
{
public:
    Palette() { cells_.fill(kFree); }

    // Number of a colour; -1 when there are more than 256.
    int number(std::uint32_t rgb)
    {
        std::size_t cell = rgb * 2654435761u >> 22;
        while (cells_[cell] != kFree && colours_[cells_[cell]] != rgb)
            cell = (cell + 1) % cells_.size();
        if (cells_[cell] == kFree) {
            if (colours_.size() == 256) return -1;
            cells_[cell] = static_cast<std::uint16_t>(colours_.size());
            colours_.push_back(rgb);
        }
        return cells_[cell];
    }
    const std::vector<std::uint32_t>& colours() const { return colours_; }

private:
    static constexpr std::uint16_t kFree = 0xFFFF;
    std::array<std::uint16_t, 1024> cells_;
    std::vector<std::uint32_t> colours_;
};

// Rows of palette numbers; false when there are too many colours.
bool palettedRows(int width, int height, const std::vector<std::uint8_t>& pixels, Palette& palette,
                  std::string& rows)
{
    rows.reserve(std::size_t(width + 1) * std::size_t(height));
    const std::uint8_t* pixel = pixels.data();
    std::uint32_t lastColour = 0xFFFFFFFF;
    int lastNumber = 0;
    for (int y = 0; y < height; ++y) {
        rows.push_back('\0'); // unfiltered: numbers of a palette do not predict each other
        for (int x = 0; x < width; ++x, pixel += 3) {
            const std::uint32_t colour =
                std::uint32_t(pixel[0]) << 16 | std::uint32_t(pixel[1]) << 8 | pixel[2];
            if (colour != lastColour) {
                lastNumber = palette.number(colour);
                if (lastNumber < 0) return false;
                lastColour = colour;
            }
            rows.push_back(char(lastNumber));
        }
    }
    return true;
}

std::string trueColourRows(int width, int height, const std::vector<std::uint8_t>& pixels)
{
    const std::size_t stride = std::size_t(width) * 3;
    std::string rows;
    rows.reserve((stride + 1) * std::size_t(height));
    std::vector<std::uint8_t> up(stride);
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = &pixels[std::size_t(y) * stride];
        long plainNoise = 0, upNoise = 0; // steps along the row, a guess of what it costs
        for (std::size_t i = 0; i < stride; ++i) {
            up[i] = static_cast<std::uint8_t>(row[i] - (y > 0 ? *(row + i - stride) : 0));
            if (i < 3) continue;
            plainNoise += row[i] != row[i - 3] ? 1 : 0;
            upNoise += up[i] != up[i - 3] ? 1 : 0;
        }
        const bool useUp = y > 0 && upNoise < plainNoise;
        rows.push_back(useUp ? '\2' : '\0');
        rows.append(reinterpret_cast<const char*>(useUp ? up.data() : row), stride);
    }
    return rows;
}

} // namespace

std::string pngFile(int width, int height, const std::vector<std::uint8_t>& pixels)
{
    Palette palette;
    std::string rows;
    const bool paletted = palettedRows(width, height, pixels, palette, rows);
    if (!paletted) rows = trueColourRows(width, height, pixels);

    std::string out("\x89PNG\r\n\x1A\n", 8);
    std::string head;
    appendNumber(head, std::uint32_t(width));
    appendNumber(head, std::uint32_t(height));
    head.append({8, paletted ? char(3) : char(2), 0, 0, 0}); // 8 bits; deflate, no interlacing
    appendChunk(out, "IHDR", head);
    if (paletted) {
        std::string colours;
        for (const std::uint32_t colour : palette.colours()) {
            colours.push_back(char(colour >> 16));
            colours.push_back(char(colour >> 8 & 255));
            colours.push_back(char(colour & 255));
        }
        appendChunk(out, "PLTE", colours);
    }
    appendChunk(out, "IDAT", zlibCompress(rows));
    appendChunk(out, "IEND", {});
    return out;
}

} // namespace orvald::picture
