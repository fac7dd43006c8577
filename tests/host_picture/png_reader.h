// SPDX-License-Identifier: LicenseRef-ORVALD
// An independent way back from compressed bytes and PNG files, written from the formats, not from
// our writer. Whatever does not fit the format throws.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace test {

inline void demand(bool holds, const char* what)
{
    if (!holds) throw std::runtime_error(what);
}

class Inflater
{
public:
    explicit Inflater(std::string_view bytes) : bytes_(bytes) {}

    std::string run()
    {
        for (bool last = false; !last;) {
            last = bits(1) != 0;
            const unsigned type = bits(2);
            demand(type == 1 || type == 2, "block type");
            std::vector<int> literals(288), distances(32);
            if (type == 1) {
                for (int i = 0; i < 288; ++i)
                    literals[std::size_t(i)] = i < 144 ? 8 : i < 256 ? 9 : i < 280 ? 7 : 8;
                std::fill(distances.begin(), distances.end(), 5);
            } else {
                readLengths(literals, distances);
            }
            block(Tree(literals), Tree(distances));
        }
        return std::move(out_);
    }
    std::size_t bytesRead() const { return at_; }

private:
    // Words by length and value; a complete code is not demanded of a tree of one word.
    struct Tree
    {
        explicit Tree(const std::vector<int>& lengths)
        {
            int space = 1 << 15, used = 0;
            for (int bits = 1, code = 0; bits <= 15; ++bits, code <<= 1) {
                first[std::size_t(bits)] = code;
                for (std::size_t i = 0; i < lengths.size(); ++i) {
                    if (lengths[i] != bits) continue;
                    symbols[std::size_t(bits)].push_back(int(i));
                    ++code;
                    ++used;
                    space -= 1 << (15 - bits);
                }
            }
            demand(space == 0 || used < 2, "the code is not complete");
        }
        std::array<int, 16> first{};
        std::array<std::vector<int>, 16> symbols;
    };

    unsigned bits(int count)
    {
        unsigned value = 0;
        for (int i = 0; i < count; ++i, ++bit_) {
            if (bit_ == 8) {
                bit_ = 0;
                ++at_;
            }
            demand(at_ < bytes_.size(), "data ends early");
            value |= unsigned(std::uint8_t(bytes_[at_]) >> bit_ & 1) << i;
        }
        return value;
    }
    int symbol(const Tree& tree)
    {
        int code = 0;
        for (std::size_t length = 1; length <= 15; ++length) {
            code = code << 1 | int(bits(1));
            const int place = code - tree.first[length];
            if (place >= 0 && place < int(tree.symbols[length].size()))
                return tree.symbols[length][std::size_t(place)];
        }
        throw std::runtime_error("no such word");
    }
    void readLengths(std::vector<int>& literals, std::vector<int>& distances)
    {
        const unsigned literalCount = bits(5) + 257, distanceCount = bits(5) + 1;
        const unsigned count = bits(4) + 4;
        static constexpr int kOrder[] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                         11, 4,  12, 3, 13, 2, 14, 1, 15};
        std::vector<int> own(19), all;
        for (unsigned i = 0; i < count; ++i) own[std::size_t(kOrder[i])] = int(bits(3));
        const Tree tree(own);
        while (all.size() < literalCount + distanceCount) {
            const int s = symbol(tree);
            if (s < 16) all.push_back(s);
            else if (s == 16) all.insert(all.end(), 3 + bits(2), all.at(all.size() - 1));
            else all.insert(all.end(), s == 17 ? 3 + bits(3) : 11 + bits(7), 0);
        }
        demand(all.size() == literalCount + distanceCount, "code lengths");
        literals.assign(all.begin(), all.begin() + literalCount);
        distances.assign(all.begin() + literalCount, all.end());
    }
    void block(const Tree& literals, const Tree& distances)
    {
        for (;;) {
            const int s = symbol(literals);
            if (s == 256) return;
            if (s < 256) {
                out_.push_back(char(s));
                continue;
            }
            const int l = s - 257;
            demand(l < 29, "length code");
            const int lengthExtra = l < 8 || l == 28 ? 0 : l / 4 - 1;
            int length = l < 8 ? 3 + l : l == 28 ? 258 : ((4 + l % 4) << lengthExtra) + 3;
            length += int(bits(lengthExtra));
            const int d = symbol(distances);
            demand(d < 30, "distance code");
            const int distanceExtra = d < 4 ? 0 : d / 2 - 1;
            int distance = d < 4 ? 1 + d : ((2 + d % 2) << distanceExtra) + 1;
            distance += int(bits(distanceExtra));
            demand(std::size_t(distance) <= out_.size(), "distance");
            for (int i = 0; i < length; ++i)
                out_.push_back(out_[out_.size() - std::size_t(distance)]);
        }
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    int bit_ = 0;
    std::string out_;
};

inline std::uint32_t number(std::string_view bytes, std::size_t at)
{
    demand(at + 4 <= bytes.size(), "number");
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) value = value << 8 | std::uint8_t(bytes[at + i]);
    return value;
}

inline std::string unzip(std::string_view stream)
{
    demand(stream.size() >= 6 && stream[0] == 0x78, "zlib head");
    demand((std::uint8_t(stream[0]) * 256 + std::uint8_t(stream[1])) % 31 == 0, "zlib check bits");
    Inflater inflater(stream.substr(2));
    std::string out = inflater.run();
    std::uint32_t a = 1, b = 0;
    for (const char c : out) {
        a = (a + std::uint8_t(c)) % 65521;
        b = (b + a) % 65521;
    }
    demand(stream.size() == 2 + inflater.bytesRead() + 1 + 4, "bytes left over");
    demand(number(stream, stream.size() - 4) == (b << 16 | a), "check sum");
    return out;
}

struct Image
{
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels; // 0xRRGGBB
    std::uint32_t at(int x, int y) const { return pixels.at(std::size_t(y * width + x)); }
};

inline Image readPng(std::string_view file)
{
    demand(file.substr(0, 8) == std::string_view("\x89PNG\r\n\x1A\n", 8), "signature");
    Image image;
    std::string data, palette;
    int colourType = -1;
    bool ended = false;
    for (std::size_t at = 8; at < file.size();) {
        demand(!ended, "a chunk behind the end");
        const std::size_t size = number(file, at);
        const std::string_view type = file.substr(at + 4, 4), body = file.substr(at + 8, size);
        std::uint32_t crc = ~0u;
        for (const char c : file.substr(at + 4, size + 4)) {
            crc ^= std::uint8_t(c);
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc & 1) != 0 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
        }
        demand(~crc == number(file, at + 8 + size), "check sum of a chunk");
        if (type == "IHDR") {
            image.width = int(number(body, 0));
            image.height = int(number(body, 4));
            demand(body[8] == 8 && body.substr(10) == std::string_view("\0\0\0", 3), "head");
            colourType = body[9];
        } else if (type == "PLTE") {
            palette = body;
        } else if (type == "IDAT") {
            data += body;
        }
        ended = type == "IEND";
        at += 12 + size;
    }
    demand(ended, "no end");
    std::string rows = unzip(data);
    const std::size_t bytes = colourType == 3 ? 1 : 3, stride = std::size_t(image.width) * bytes;
    demand(rows.size() == (stride + 1) * std::size_t(image.height), "number of rows");
    for (int y = 0; y < image.height; ++y) {
        char* row = &rows[std::size_t(y) * (stride + 1)];
        demand(row[0] == 0 || (row[0] == 2 && y > 0), "filter");
        for (std::size_t i = 1; row[0] == 2 && i <= stride; ++i)
            row[i] = char(row[i] + *(row + i - stride - 1));
        const auto byte = [](char c) { return std::uint32_t(std::uint8_t(c)); };
        for (int x = 0; x < image.width; ++x) {
            const char* p =
                colourType == 3 ? palette.data() + byte(row[1 + x]) * 3 : row + 1 + x * 3;
            image.pixels.push_back(byte(p[0]) << 16 | byte(p[1]) << 8 | byte(p[2]));
        }
    }
    return image;
}

} // namespace test
