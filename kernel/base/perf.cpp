// SPDX-License-Identifier: LicenseRef-ORVALD
// Totals in one array by code. An entry without calls has never been used since the last reset.
#include "kex/perf.h"

#include <algorithm>

namespace KEX {
namespace {

PerfEntry totals[kPerfCodes];

/// Where the last look-up stood, so that walking through all entries does not start over each time.
struct Cursor
{
    int index = -1, code = -1;
} cursor;

} // namespace

void addPerfTime(int code, const ACHAR* name, double seconds)
{
    if (code < 0 || code >= kPerfCodes) return;
    PerfEntry& entry = totals[code];
    // A function called for the first time moves the indexes of those behind it.
    if (entry.calls++ == 0) cursor = Cursor();
    entry.name = name;
    entry.seconds += seconds;
}

const PerfEntry* perfEntryAtIndex(int index)
{
    if (index < 0) return nullptr;
    if (index != cursor.index + 1) cursor = Cursor();
    while (cursor.index < index) {
        do {
            if (++cursor.code >= kPerfCodes) {
                cursor = Cursor();
                return nullptr;
            }
        } while (totals[cursor.code].calls == 0);
        ++cursor.index;
    }
    return &totals[cursor.code];
}

void perfReset()
{
    std::fill(std::begin(totals), std::end(totals), PerfEntry());
    cursor = Cursor();
}

} // namespace KEX
