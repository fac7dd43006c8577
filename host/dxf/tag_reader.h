// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups of a DXF file: of text, a line with the group code and a line with the value; of a binary
// file, which gives the same values. Comments (999) are left out. What is no group ends the reading
// with a Fail that names the line.
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
    explicit TagReader(LineSource& lines);

    /// Moves to the next group; false at the end of the text.
    bool next();
    int code() const { return code_; }
    /// As text has it, valid until next().
    std::string_view value() const { return value_; }
    bool is(int code, std::string_view value) const { return code_ == code && value_ == value; }
    /// Line of the group code; in a binary file the one that it would have as text.
    std::uint64_t line() const { return line_; }
    /// The text begins with a byte order mark; known from the first group on.
    bool hasMark() const { return hasMark_; }
    /// How many lines stand behind the present group, empty ones left out, and the first of them.
    std::uint64_t linesBehind(std::uint64_t& first);
    /// Ends the reading at the present group.
    [[noreturn]] void fail(std::string reason) const;

private:
    [[noreturn]] void failCode(std::string_view line) const;
    bool nextText();
    bool nextBinary();
    bool takeCode();
    /// The next bytes of a binary value as a number; Fail when the file ends.
    template <class Number>
    Number takeNumber();
    template <class Number>
    void showNumber(Number number);
    void showBytes();

    enum class Form
    {
        text,
        binary,
        binaryOld // before R13: group codes of one byte
    };

    LineSource& lines_;
    Form form_ = Form::text;
    bool codeRead_ = false; // the first group code has been read
    bool hasMark_ = false;
    std::string shown_; // value of a binary group
    std::string_view value_;
    std::uint64_t line_ = 0;
    int code_ = DxfError::kNoGroup;
};

/// A value as an error message shows it: in quotes, cut when it is long, controls as dots.
std::string quoted(std::string_view value);

} // namespace orvald::dxf
