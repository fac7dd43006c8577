// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dxf/audit.h"

#include "audit/auditor.h"
#include "open_file.h"

namespace orvald::dxf {

Audit audit(const std::string& path, const TellProblem& tell)
{
    Audit audit;
    OpenFile file(path, audit.error);
    if (!file.isOpen()) return audit;
    LineSource lines(file.number());
    Auditor(lines, audit, tell).run();
    return audit;
}

Audit auditText(std::string_view text, const TellProblem& tell)
{
    Audit audit;
    LineSource lines(text);
    Auditor(lines, audit, tell).run();
    return audit;
}

} // namespace orvald::dxf
