// SPDX-License-Identifier: LicenseRef-ORVALD
#include "equality.h"

#include <cmath>
#include <limits>
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

bool equalLists(Value a, Value b, double fuzz)
{
    std::vector<std::pair<Value, Value>> rests; // still to be compared
    for (;;) {
        while (a.isCons() && b.isCons() && !(a == b)) {
            const Cons& left = *a.asCons();
            const Cons& right = *b.asCons();
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
