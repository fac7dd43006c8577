// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines of a file or of text in memory, one after the other, or its bytes. A file passes through
// one window of memory, so its size does not matter; a line is valid until the next one is asked
// for.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace orvald::dxf {

class LineSource
{
public:
    explicit LineSource(std::string_view text) : at_(text.data()), end_(text.data() + text.size())
    {
    }
    /// Reads from an open file, which stays the caller's.
    explicit LineSource(int file) : file_(file) {}
    LineSource(const LineSource&) = delete;
    LineSource& operator=(const LineSource&) = delete;

    /// The next line without its end (LF or CR LF). False at the end, and after a read error.
    bool next(std::string_view& line)
    {
        const char* newline = nullptr;
        if (at_ != end_)
            newline = static_cast<const char*>(
                std::memchr(at_, '\n', static_cast<std::size_t>(end_ - at_)));
        if (newline == nullptr) {
            if (!refill()) return false;
            newline = static_cast<const char*>(
                std::memchr(at_, '\n', static_cast<std::size_t>(end_ - at_)));
            if (newline == nullptr) newline = end_; // the last line has no end
        }
        take(newline, line);
        return true;
    }
    /// The same, made for lines of a few bytes.
    bool nextShort(std::string_view& line)
    {
        constexpr std::ptrdiff_t kShort = 12;
        const char* stop = end_ - at_ > kShort ? at_ + kShort : end_;
        for (const char* newline = at_; newline != stop; ++newline) {
            if (*newline != '\n') continue;
            take(newline, line);
            return true;
        }
        return next(line);
    }
    // Bytes of a file that has no lines; valid until the next call. False when fewer are left.
    /// Moves behind these bytes; false, and nothing done, when others stand there.
    bool skip(std::string_view bytes);
    bool take(std::size_t count, std::string_view& bytes);
    /// Those in front of the next `mark`, and moves behind it.
    bool takeUpTo(char mark, std::string_view& bytes);

    /// Number of the last line, from 1.
    std::uint64_t number() const { return number_; }
    /// errno of a read error, else 0.
    int error() const { return error_; }

private:
    void take(const char* newline, std::string_view& line)
    {
        const char* last = newline;
        if (last != at_ && last[-1] == '\r') --last;
        line = {at_, static_cast<std::size_t>(last - at_)};
        at_ = newline == end_ ? end_ : newline + 1;
        ++number_;
    }
    /// Brings a whole line, or the rest of the file, into the window. False when nothing is left.
    bool refill();
    /// Reads on behind what is left in the window. Gives how many bytes came.
    std::size_t readOn();

    static constexpr std::size_t kWindow = std::size_t{1} << 20;
    const char* at_ = nullptr;
    const char* end_ = nullptr;
    std::unique_ptr<char[]> window_;
    std::size_t room_ = 0;
    std::uint64_t number_ = 0;
    int file_ = -1;
    int error_ = 0;
};

} // namespace orvald::dxf
