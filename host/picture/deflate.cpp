// SPDX-License-Identifier: LicenseRef-ORVALD
// Repetitions are found through chains of positions with equal hashes, one step of looking ahead;
// every block of symbols gets the Huffman codes that suit it.
#include "deflate.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace orvald::picture {

namespace {

constexpr std::size_t kWindow = 32768;
constexpr int kLeastMatch = 3, kMostMatch = 258;
constexpr int kGoodMatch = 64;        // long enough not to look for a longer one
constexpr int kMostTries = 48;        // positions looked at for a match
constexpr std::size_t kBlock = 32768; // symbols of one block
constexpr int kHashBits = 15;

constexpr int kLiterals = 286, kDistances = 30, kLengthCodes = 19;
constexpr int kEndOfBlock = 256;

// Lengths 3 to 258 and distances 1 to 32768 in steps: first value and number of extra bits.
struct Step
{
    std::uint16_t first;
    std::uint8_t extra;
};
constexpr std::array<Step, 29> kLengthSteps = [] {
    std::array<Step, 29> steps{};
    int first = kLeastMatch;
    for (int i = 0; i < 28; ++i) {
        const int extra = i < 8 ? 0 : i / 4 - 1;
        steps[std::size_t(i)] = {static_cast<std::uint16_t>(first),
                                 static_cast<std::uint8_t>(extra)};
        first += 1 << extra;
    }
    steps[28] = {kMostMatch, 0}; // the longest match has a code of its own
    return steps;
}();
constexpr std::array<Step, kDistances> kDistanceSteps = [] {
    std::array<Step, kDistances> steps{};
    int first = 1;
    for (int i = 0; i < kDistances; ++i) {
        const int extra = i < 4 ? 0 : i / 2 - 1;
        steps[std::size_t(i)] = {static_cast<std::uint16_t>(first),
                                 static_cast<std::uint8_t>(extra)};
        first += 1 << extra;
    }
    return steps;
}();

template <std::size_t N>
int stepOf(const std::array<Step, N>& steps, int value)
{
    const auto above = std::upper_bound(steps.begin(), steps.end(), value,
                                        [](int v, const Step& s) { return v < s.first; });
    return static_cast<int>(above - steps.begin()) - 1;
}

class BitWriter
{
public:
    explicit BitWriter(std::string& out) : out_(out) {}

    void bits(std::uint32_t value, int count)
    {
        pending_ |= std::uint64_t{value} << count_;
        count_ += count;
        while (count_ >= 8) byteOut();
    }
    void finish()
    {
        if (count_ > 0) byteOut();
    }

private:
    void byteOut()
    {
        out_.push_back(static_cast<char>(pending_ & 255));
        pending_ >>= 8;
        count_ -= 8;
    }
    std::string& out_;
    std::uint64_t pending_ = 0;
    int count_ = 0;
};

// A Huffman code, at most `mostBits` long.
class Code
{
public:
    Code(std::vector<std::uint32_t> counts, int mostBits) : lengths_(counts.size())
    {
        // Flatter counts give shorter codes in the end; the loss is small.
        while (!build(counts, mostBits))
            for (std::uint32_t& count : counts) count = count == 0 ? 0 : (count + 1) / 2 + 1;
        assign(mostBits);
    }
    void write(BitWriter& out, int symbol) const
    {
        out.bits(codes_[std::size_t(symbol)], lengths_[std::size_t(symbol)]);
    }
    const std::vector<std::uint8_t>& lengths() const { return lengths_; }

private:
    bool build(const std::vector<std::uint32_t>& counts, int mostBits)
    {
        struct Node
        {
            std::uint64_t count;
            int left, right; // -1: a symbol
        };
        std::vector<Node> nodes;
        std::vector<int> symbols;
        for (std::size_t i = 0; i < counts.size(); ++i)
            if (counts[i] != 0) symbols.push_back(int(i));
        // A code needs two words to be complete.
        for (int i = 0; symbols.size() < 2; ++i)
            if (counts[std::size_t(i)] == 0) symbols.push_back(i);
        std::stable_sort(symbols.begin(), symbols.end(), [&](int a, int b) {
            return counts[std::size_t(a)] < counts[std::size_t(b)];
        });
        for (const int symbol : symbols) nodes.push_back({counts[std::size_t(symbol)], -1, -1});
        // Two queues, both in rising order: the symbols and the joined nodes behind them.
        const std::size_t leaves = nodes.size();
        std::size_t leaf = 0, joined = leaves;
        const auto least = [&] {
            const bool takeLeaf = leaf < leaves && (joined >= nodes.size() ||
                                                    nodes[leaf].count <= nodes[joined].count);
            return static_cast<int>(takeLeaf ? leaf++ : joined++);
        };
        while (nodes.size() < 2 * leaves - 1) {
            const int a = least(), b = least();
            nodes.push_back({nodes[std::size_t(a)].count + nodes[std::size_t(b)].count, a, b});
        }
        std::vector<int> depth(nodes.size());
        for (std::size_t i = nodes.size(); i-- > leaves;) {
            depth[std::size_t(nodes[i].left)] = depth[i] + 1;
            depth[std::size_t(nodes[i].right)] = depth[i] + 1;
        }
        std::fill(lengths_.begin(), lengths_.end(), std::uint8_t{0});
        for (std::size_t i = 0; i < leaves; ++i) {
            if (depth[i] > mostBits) return false;
            lengths_[std::size_t(symbols[i])] = static_cast<std::uint8_t>(depth[i]);
        }
        return true;
    }

    // Words of equal length count up in symbol order; they are written from their first bit on.
    void assign(int mostBits)
    {
        codes_.assign(lengths_.size(), 0);
        std::uint32_t next = 0;
        for (int bits = 1; bits <= mostBits; ++bits, next <<= 1) {
            for (std::size_t i = 0; i < lengths_.size(); ++i) {
                if (lengths_[i] != bits) continue;
                std::uint32_t reversed = 0;
                for (int b = 0; b < bits; ++b) reversed |= (next >> b & 1) << (bits - 1 - b);
                codes_[i] = static_cast<std::uint16_t>(reversed);
                ++next;
            }
        }
    }

    std::vector<std::uint8_t> lengths_;
    std::vector<std::uint16_t> codes_;
};

struct Symbol
{
    std::uint16_t length;   // of a match, or 0
    std::uint16_t distance; // of a match, less one; or the literal byte
};

// Code lengths of a block's codes, packed: 16 repeats the last one, 17 and 18 are runs of zeros.
struct PackedLength
{
    int symbol, extra, extraBits;
};
std::vector<PackedLength> packLengths(const std::vector<std::uint8_t>& lengths)
{
    std::vector<PackedLength> packed;
    for (std::size_t i = 0; i < lengths.size();) {
        std::size_t run = 1;
        while (i + run < lengths.size() && lengths[i + run] == lengths[i]) ++run;
        i += run;
        const int length = lengths[i - 1];
        if (length != 0) {
            packed.push_back({length, 0, 0});
            --run;
        }
        while (run >= 3) {
            const std::size_t most = length != 0 ? 6 : run > 10 ? 138 : 10;
            const std::size_t part = std::min(run, most);
            if (length != 0) packed.push_back({16, int(part) - 3, 2});
            else if (part > 10) packed.push_back({18, int(part) - 11, 7});
            else packed.push_back({17, int(part) - 3, 3});
            run -= part;
        }
        for (; run > 0; --run) packed.push_back({length, 0, 0});
    }
    return packed;
}

void writeBlock(BitWriter& out, const std::vector<Symbol>& symbols, bool last)
{
    std::vector<std::uint32_t> literalCounts(kLiterals), distanceCounts(kDistances);
    for (const Symbol symbol : symbols) {
        if (symbol.length == 0) {
            ++literalCounts[symbol.distance];
        } else {
            ++literalCounts[std::size_t(257 + stepOf(kLengthSteps, symbol.length))];
            ++distanceCounts[std::size_t(stepOf(kDistanceSteps, symbol.distance + 1))];
        }
    }
    literalCounts[kEndOfBlock] = 1;
    const Code literals(literalCounts, 15), distances(distanceCounts, 15);

    std::vector<std::uint8_t> lengths = literals.lengths();
    lengths.insert(lengths.end(), distances.lengths().begin(), distances.lengths().end());
    const std::vector<PackedLength> packed = packLengths(lengths);
    std::vector<std::uint32_t> lengthCounts(kLengthCodes);
    for (const PackedLength& item : packed) ++lengthCounts[std::size_t(item.symbol)];
    const Code lengthCode(lengthCounts, 7);

    constexpr int kOrder[kLengthCodes] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                          11, 4,  12, 3, 13, 2, 14, 1, 15};
    out.bits(last ? 1 : 0, 1);
    out.bits(2, 2);
    out.bits(kLiterals - 257, 5);
    out.bits(kDistances - 1, 5);
    out.bits(kLengthCodes - 4, 4);
    for (const int symbol : kOrder) out.bits(lengthCode.lengths()[std::size_t(symbol)], 3);
    for (const PackedLength& item : packed) {
        lengthCode.write(out, item.symbol);
        out.bits(std::uint32_t(item.extra), item.extraBits);
    }
    for (const Symbol symbol : symbols) {
        if (symbol.length == 0) {
            literals.write(out, symbol.distance);
            continue;
        }
        const int length = stepOf(kLengthSteps, symbol.length);
        const Step lengthStep = kLengthSteps[std::size_t(length)];
        literals.write(out, 257 + length);
        out.bits(std::uint32_t(symbol.length - lengthStep.first), lengthStep.extra);
        const int distance = stepOf(kDistanceSteps, symbol.distance + 1);
        const Step distanceStep = kDistanceSteps[std::size_t(distance)];
        distances.write(out, distance);
        out.bits(std::uint32_t(symbol.distance + 1 - distanceStep.first), distanceStep.extra);
    }
    literals.write(out, kEndOfBlock);
}

class Matcher
{
public:
    explicit Matcher(std::string_view bytes)
        : bytes_(bytes), newest_(std::size_t{1} << kHashBits, kNone), older_(kWindow, kNone)
    {
    }

    // Makes a position known as the start of later matches.
    void enter(std::size_t at)
    {
        if (at + kLeastMatch > bytes_.size()) return;
        std::uint32_t& head = newest_[hash(at)];
        older_[at % kWindow] = head;
        head = static_cast<std::uint32_t>(at);
    }
    // Longest match for the bytes at `at`, which is not yet entered; length 0: none.
    Symbol find(std::size_t at) const
    {
        if (at + kLeastMatch > bytes_.size()) return {};
        const int most = static_cast<int>(std::min<std::size_t>(kMostMatch, bytes_.size() - at));
        int best = kLeastMatch - 1;
        std::size_t bestAt = 0;
        std::uint32_t candidate = newest_[hash(at)];
        for (int tries = kMostTries; tries > 0 && candidate != kNone; --tries) {
            if (at - candidate > kWindow) break;
            if (bytes_[candidate + std::size_t(best)] == bytes_[at + std::size_t(best)]) {
                const int length = common(candidate, at, most);
                if (length > best) {
                    best = length;
                    bestAt = candidate;
                    if (best >= std::min(kGoodMatch, most)) break;
                }
            }
            const std::uint32_t next = older_[candidate % kWindow];
            if (next == kNone || next >= candidate) break; // overwritten by a later position
            candidate = next;
        }
        if (best < kLeastMatch) return {};
        return {static_cast<std::uint16_t>(best), static_cast<std::uint16_t>(at - bestAt - 1)};
    }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    std::size_t hash(std::size_t at) const
    {
        const auto byte = [&](std::size_t i) {
            return std::uint32_t(std::uint8_t(bytes_[at + i]));
        };
        const std::uint32_t three = byte(0) | byte(1) << 8 | byte(2) << 16;
        return three * 2654435761u >> (32 - kHashBits);
    }
    int common(std::size_t a, std::size_t b, int most) const
    {
        int length = 0;
        while (length < most && bytes_[a + std::size_t(length)] == bytes_[b + std::size_t(length)])
            ++length;
        return length;
    }

    std::string_view bytes_;
    std::vector<std::uint32_t> newest_; // by hash
    std::vector<std::uint32_t> older_;  // by position in the window
};

void deflate(std::string_view bytes, std::string& out)
{
    BitWriter writer(out);
    Matcher matcher(bytes);
    std::vector<Symbol> symbols;
    symbols.reserve(kBlock);
    Symbol ahead{}; // match found for the current position when its predecessor was looked at
    bool looked = false;
    for (std::size_t at = 0; at < bytes.size();) {
        if (symbols.size() >= kBlock) {
            writeBlock(writer, symbols, false);
            symbols.clear();
        }
        Symbol match = looked ? ahead : matcher.find(at);
        looked = false;
        matcher.enter(at);
        if (match.length != 0 && match.length < kGoodMatch) {
            // A longer match one byte on is worth a literal.
            ahead = matcher.find(at + 1);
            looked = true;
            if (ahead.length > match.length) match.length = 0;
        }
        if (match.length == 0) {
            symbols.push_back({0, std::uint8_t(bytes[at])});
            ++at;
            continue;
        }
        looked = false;
        symbols.push_back(match);
        for (int i = 1; i < match.length; ++i) matcher.enter(at + std::size_t(i));
        at += match.length;
    }
    writeBlock(writer, symbols, true);
    writer.finish();
}

std::uint32_t adler32(std::string_view bytes)
{
    constexpr std::uint32_t kPrime = 65521;
    constexpr std::size_t kSafe = 5552; // bytes whose sums stay below 32 bits
    std::uint32_t a = 1, b = 0;
    for (std::size_t at = 0; at < bytes.size(); at += kSafe) {
        for (const char c : bytes.substr(at, kSafe)) {
            a += std::uint8_t(c);
            b += a;
        }
        a %= kPrime;
        b %= kPrime;
    }
    return b << 16 | a;
}

} // namespace

std::string zlibCompress(std::string_view bytes)
{
    std::string out("\x78\x9C", 2); // 32K window, default effort
    deflate(bytes, out);
    const std::uint32_t sum = adler32(bytes);
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(char(sum >> shift & 255));
    return out;
}

} // namespace orvald::picture
