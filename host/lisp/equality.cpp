// SPDX-License-Identifier: LicenseRef-ORVALD
#include "equality.h"

#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace orvald::lisp {

bool equalReals(double a, double b, double fuzz)
{
    if (a == b) return true;
    if (!(fuzz > 0.0)) return false;
    // The difference may equal the fuzz: what rounding adds to the numbers as written must not
    // decide, and it is below one unit of the larger one's last place.
    const double rounding =
        std::numeric_limits<double>::epsilon() * std::fmax(std::fabs(a), std::fabs(b));
    return std::fabs(a - b) <= fuzz + rounding;
}

namespace {

// Lists that share parts may be small and yet without end to walk. After so many steps the pairs
// that were compared are remembered and not compared again.
constexpr std::size_t kStepsBeforeMemory = std::size_t{16} << 20;

struct PairHash
{
    std::size_t operator()(const std::pair<std::uint64_t, std::uint64_t>& pair) const
    {
        const std::uint64_t mixed =
            ((pair.first * 0x9E3779B97F4A7C15) ^ pair.second) * 0xC2B2AE3D27D4EB4F;
        return static_cast<std::size_t>(mixed >> 8);
    }
};
using PairSet = std::unordered_set<std::pair<std::uint64_t, std::uint64_t>, PairHash>;

} // namespace

bool equalLists(Value a, Value b, double fuzz)
{
    std::vector<std::pair<Value, Value>> rests; // still to be compared
    std::size_t steps = 0;
    PairSet seen; // pairs of cells that are equal, or will be found not to be
    for (;;) {
        while (a.isCons() && b.isCons() && !(a == b)) {
            const Cons& left = *a.asCons();
            const Cons& right = *b.asCons();
            if (++steps > kStepsBeforeMemory && !seen.emplace(a.bits(), b.bits()).second) {
                a = b;
                break;
            }
            if (left.car.isCons() && right.car.isCons()) {
                rests.emplace_back(left.cdr, right.cdr);
                a = left.car;
                b = right.car;
                continue;
            }
            if (!equalValues(left.car, right.car, fuzz)) return false;
            a = left.cdr;
            b = right.cdr;
        }
        if (a.isCons() != b.isCons() || (!a.isCons() && !equalValues(a, b, fuzz))) return false;
        if (rests.empty()) return true;
        a = rests.back().first;
        b = rests.back().second;
        rests.pop_back();
    }
}

} // namespace orvald::lisp
