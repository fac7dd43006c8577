// SPDX-License-Identifier: LicenseRef-ORVALD
// Problems as they are found: told one by one, summed by kind.
#pragma once

#include "dxf/audit.h"

namespace orvald::dxf {

class Report
{
public:
    Report(Audit& audit, const TellProblem& tell) : audit_(audit), tell_(tell) {}

    void add(Problem&& problem);
    /// A problem of the drawing as a whole.
    void error(std::string_view kind, std::string text)
    {
        add({true, kind, 0, 0, std::move(text)});
    }

private:
    Audit& audit_;
    const TellProblem& tell_;
};

} // namespace orvald::dxf
