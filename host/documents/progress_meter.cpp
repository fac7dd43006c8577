// SPDX-License-Identifier: LicenseRef-ORVALD
#include "progress_meter.h"

#include <algorithm>
#include <cstdint>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orvald {
namespace {

constexpr int kBarWidth = 30;
constexpr int kUnknownWidth = 80;
constexpr std::string_view kToLineStart = "\r", kClearToEnd = "\033[K";

void writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count <= 0) return; // a meter is no reason to fail
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

int columnsOf(int terminal)
{
    winsize size = {};
    const bool known = ::ioctl(terminal, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kUnknownWidth;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// The label on one line, cut to as many characters as fit.
std::string cutTo(std::string_view label, int most)
{
    std::string cut;
    int count = 0;
    for (const char byte : label) {
        if (!isContinuation(byte) && ++count > most) break;
        cut += static_cast<unsigned char>(byte) < ' ' ? ' ' : byte;
    }
    return cut;
}

} // namespace

void ProgressMeter::show(std::string_view label, int low, int high)
{
    const std::lock_guard lock(mutex_);
    const auto [least, most] = std::minmax(low, high);
    state_ = {true, std::string(label), least, most, least, 0};
    draw();
}

bool ProgressMeter::move(int position)
{
    const std::lock_guard lock(mutex_);
    if (!state_.isShown) return false;
    state_.position = std::clamp(position, state_.low, state_.high);
    ++state_.movements;
    draw();
    return true;
}

void ProgressMeter::restore()
{
    const std::lock_guard lock(mutex_);
    state_.isShown = false;
    clear();
}

void ProgressMeter::stepAside()
{
    const std::lock_guard lock(mutex_);
    clear();
}

ProgressMeter::State ProgressMeter::state() const
{
    const std::lock_guard lock(mutex_);
    return state_;
}

void ProgressMeter::draw()
{
    if (::isatty(file_) == 0) return;
    const auto range = std::max<std::int64_t>(std::int64_t{state_.high} - state_.low, 1);
    const std::int64_t done = std::int64_t{state_.position} - state_.low;
    const std::string percent = std::to_string(done * 100 / range);
    const auto filled = static_cast<std::size_t>(done * kBarWidth / range);
    const std::string bar = "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') +
                            "] " + std::string(3 - std::min<std::size_t>(percent.size(), 3), ' ') +
                            percent + " %";
    // The last column stays free: a terminal may wrap there.
    const int room = columnsOf(file_) - 2 - static_cast<int>(bar.size());
    std::string line = cutTo(state_.label, std::max(room, 0));
    if (!line.empty()) line += ' ';
    line += bar;
    if (line == drawn_) return;
    drawn_ = line;
    writeAll(file_, std::string(kToLineStart) + line + std::string(kClearToEnd));
}

void ProgressMeter::clear()
{
    if (drawn_.empty()) return;
    drawn_.clear();
    writeAll(file_, std::string(kToLineStart) + std::string(kClearToEnd));
}

} // namespace orvald
