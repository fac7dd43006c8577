// SPDX-License-Identifier: LicenseRef-ORVALD
// Looking for everything that is wrong in a DXF file, without building a drawing of it: what a
// strict reader refuses counts as an error, even where load() mends it.
#pragma once

#include "dxf/dxf.h"

#include <functional>

namespace orvald::dxf {

struct Problem
{
    bool isError = true;        // else programs live with it
    std::string_view kind;      // a word of a fixed set, listed in docs/dxf.md: "handle-in-use"
    std::uint64_t line = 0;     // 0: the drawing as a whole
    drawing::Handle handle = 0; // of the record, 0 when it has none
    std::string text;           // "LINE 2F: colour 300"
};

/// All problems of one kind.
struct ProblemSum
{
    Problem first;
    std::size_t count = 0;
};

struct Audit
{
    DxfError error;                // the reason is empty unless the file could not be read at all
    std::string version;           // "AC1015"; "" when the file does not tell it
    std::vector<ProblemSum> kinds; // in the order of their first places in the report
    std::size_t errors = 0, warnings = 0;

    bool good() const { return error.reason.empty() && errors == 0; }
};

/// Is told each problem: first those that show while the file is read, then those that need all of
/// it (references, names).
using TellProblem = std::function<void(const Problem&)>;

/// The file passes through; what is kept of a record is some 40 bytes.
Audit audit(const std::string& path, const TellProblem& tell = {});
/// Text in memory; it is read only during the call.
Audit auditText(std::string_view text, const TellProblem& tell = {});

} // namespace orvald::dxf
