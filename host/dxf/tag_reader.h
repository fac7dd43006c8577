// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups of a DXF text: a line with the group code, a line with the value. Comments (999) are left
// out. What is no group ends the reading with a Fail that names the line.
#pragma once

#include "dxf/dxf.h"
#include "line_source.h"

namespace orvald::dxf {

/// Thrown inside the reader; dxf::load makes the result of it.
struct Fail
{
    DxfError error;
};

class TagReader
{
public:
    explicit TagReader(LineSource& lines) : lines_(lines) {}

    /// Moves to the next group; false at the end of the text.
    bool next();
    int code() const { return code_; }
    /// Valid until next().
    std::string_view value() const { return value_; }
    bool is(int code, std::string_view value) const { return code_ == code && value_ == value; }
    /// Line of the group code.
    std::uint64_t line() const { return line_; }
    LineSource& lines() { return lines_; }
    /// Ends the reading at the present group.
    [[noreturn]] void fail(std::string reason) const;

private:
    [[noreturn]] void failCode(std::string_view line) const;

    LineSource& lines_;
    std::string_view value_;
    std::uint64_t line_ = 0;
    int code_ = DxfError::kNoGroup;
};

/// A value as an error message shows it: in quotes, cut when it is long, controls as dots.
std::string quoted(std::string_view value);

} // namespace orvald::dxf
