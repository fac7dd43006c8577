// SPDX-License-Identifier: LicenseRef-ORVALD
// The window through which a file is read.
#include "line_source.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace orvald::dxf {

std::size_t LineSource::readOn()
{
    if (file_ < 0) return 0;
    const std::size_t kept = static_cast<std::size_t>(end_ - at_);
    if (room_ - kept < kWindow / 2) { // the rest of a long line fills the window
        const std::size_t room = std::max(2 * room_, kWindow);
        auto larger = std::make_unique_for_overwrite<char[]>(room);
        if (kept != 0) std::memcpy(larger.get(), at_, kept);
        window_ = std::move(larger);
        room_ = room;
    } else if (kept != 0 && at_ != window_.get()) {
        std::memmove(window_.get(), at_, kept);
    }
    at_ = window_.get();
    ssize_t got = 0;
    do {
        got = ::read(file_, window_.get() + kept, room_ - kept);
    } while (got < 0 && errno == EINTR);
    if (got < 0) error_ = errno;
    end_ = at_ + kept + (got < 0 ? 0 : got);
    return got < 0 ? 0 : static_cast<std::size_t>(got);
}

bool LineSource::refill()
{
    for (;;) {
        const std::size_t kept = static_cast<std::size_t>(end_ - at_);
        const std::size_t got = readOn();
        if (got == 0) return kept != 0 && error_ == 0;
        if (std::memchr(at_ + kept, '\n', got) != nullptr) return true;
    }
}

bool LineSource::skip(std::string_view bytes)
{
    while (static_cast<std::size_t>(end_ - at_) < bytes.size())
        if (readOn() == 0) return false;
    if (std::memcmp(at_, bytes.data(), bytes.size()) != 0) return false;
    at_ += bytes.size();
    return true;
}

bool LineSource::take(std::size_t count, std::string_view& bytes)
{
    while (static_cast<std::size_t>(end_ - at_) < count)
        if (readOn() == 0) return false;
    bytes = {at_, count};
    at_ += count;
    return true;
}

bool LineSource::takeUpTo(char mark, std::string_view& bytes)
{
    std::size_t searched = 0;
    for (;;) {
        const std::size_t kept = static_cast<std::size_t>(end_ - at_);
        const void* found =
            kept == searched ? nullptr : std::memchr(at_ + searched, mark, kept - searched);
        if (found != nullptr) {
            bytes = {at_, static_cast<std::size_t>(static_cast<const char*>(found) - at_)};
            at_ += bytes.size() + 1;
            return true;
        }
        searched = kept;
        if (readOn() == 0) return false;
    }
}

} // namespace orvald::dxf
