// SPDX-License-Identifier: LicenseRef-ORVALD
#include "audit/report.h"

#include "text/encoding.h"

#include <algorithm>

namespace orvald::dxf {

void Report::add(Problem&& problem)
{
    if (!text::isUtf8(problem.text)) // files hold anything; what is told is UTF-8
        problem.text = text::utf8(text::utf16(problem.text), text::Lone::replaced);
    ++(problem.isError ? audit_.errors : audit_.warnings);
    if (tell_) tell_(problem);
    const auto same = std::find_if(audit_.kinds.begin(), audit_.kinds.end(), [&](const auto& sum) {
        return sum.first.kind == problem.kind && sum.first.isError == problem.isError;
    });
    if (same != audit_.kinds.end()) ++same->count;
    else audit_.kinds.push_back({std::move(problem), 1});
}

} // namespace orvald::dxf
