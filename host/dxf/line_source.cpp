// SPDX-License-Identifier: LicenseRef-ORVALD
// The window through which a file is read.
#include "line_source.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace orvald::dxf {

bool LineSource::refill()
{
    std::size_t kept = static_cast<std::size_t>(end_ - at_);
    if (file_ < 0) return kept != 0;
    std::size_t searched = 0; // bytes known to hold no line end
    for (;;) {
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
        end_ = at_ + kept;
        searched = kept;
        ssize_t got = 0;
        do {
            got = ::read(file_, window_.get() + kept, room_ - kept);
        } while (got < 0 && errno == EINTR);
        if (got < 0) {
            error_ = errno;
            return false;
        }
        if (got == 0) return kept != 0;
        kept += static_cast<std::size_t>(got);
        end_ = at_ + kept;
        if (std::memchr(at_ + searched, '\n', kept - searched) != nullptr) return true;
    }
}

} // namespace orvald::dxf
