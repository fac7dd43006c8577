// SPDX-License-Identifier: LicenseRef-ORVALD
// Base64 of random bytes both ways against memcpy of the same bytes: 512 bytes, as a data item
// keeps them, 1 MB and 64 MB. GB/s of bytes, not of text; best of rounds; the result is checked
// first.
#include "kex/base64.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 7;
constexpr std::size_t kBytesARound = 256'000'000;

/// Gigabytes a second of work on `size` bytes.
template <class Work>
double rate(std::size_t size, Work work)
{
    const std::size_t calls = std::max<std::size_t>(1, kBytesARound / size);
    double best = 0.0;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        for (std::size_t i = 0; i < calls; ++i) work();
        const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
        best = std::max(best, static_cast<double>(size * calls) / taken.count());
    }
    return best;
}

/// Keeps the compiler from leaving work out.
void use(const void* memory) { asm volatile("" : : "r"(memory) : "memory"); }

void measure(const char* name, std::size_t size)
{
    std::mt19937_64 random(1);
    std::string bytes(size, '\0'), copy(size, '\0'), decoded;
    for (char& byte : bytes) byte = static_cast<char>(random());
    const CKexString text = KEX::base64Encode(bytes);
    if (!KEX::base64Decode(text, decoded) || decoded != bytes) {
        std::puts("wrong result");
        std::exit(1);
    }
    const double copied = rate(size, [&] {
        std::memcpy(copy.data(), bytes.data(), size);
        use(copy.data());
    });
    const double encode = rate(size, [&] { use(KEX::base64Encode(bytes).c_str()); });
    const double decode = rate(size, [&] {
        decoded.clear();
        KEX::base64Decode(text, decoded);
        use(decoded.data());
    });
    std::printf("%-8s memcpy %6.2f GB/s   encode %5.2f GB/s (%4.1f x memcpy)   "
                "decode %5.2f GB/s (%4.1f x memcpy)\n",
                name, copied, encode, copied / encode, decode, copied / decode);
}

} // namespace

int main()
{
    measure("512 B", 512);
    measure("1 MB", 1 << 20);
    measure("64 MB", 64 << 20);
}
