// SPDX-License-Identifier: LicenseRef-ORVALD
// What a fuzz target promises beyond not crashing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Ends the process, so that the fuzzer keeps the input, when a promise does not hold.
inline void fuzzCheck(bool holds, const char* promise)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}
