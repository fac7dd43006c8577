// SPDX-License-Identifier: LicenseRef-ORVALD
// The progress meter of the status bar. On a terminal it is one line with label, bar and per cent
// that is drawn over itself; elsewhere nothing is written. Every member may be called from any
// thread.
#pragma once

#include <mutex>
#include <string>
#include <string_view>

namespace orvald {

class ProgressMeter
{
public:
    struct State
    {
        bool isShown = false;
        std::string label;
        int low = 0, high = 0;
        int position = 0;  // within low and high
        int movements = 0; // positions set since the meter was shown
    };

    /// Draws on this file when it is a terminal.
    explicit ProgressMeter(int file) : file_(file) {}
    ProgressMeter(const ProgressMeter&) = delete;
    ProgressMeter& operator=(const ProgressMeter&) = delete;
    ~ProgressMeter() { restore(); }

    /// Shows the meter at its low end, in place of one that is shown; bounds in any order.
    void show(std::string_view label, int low, int high);
    /// Moves it, at most to its ends. False when no meter is shown.
    bool move(int position);
    /// Takes the meter away; its last state stays to be read.
    void restore();
    /// Clears its line, so that something else can be written there; the next movement draws it
    /// again.
    void stepAside();

    State state() const;

private:
    void draw();
    void clear();

    const int file_;
    mutable std::mutex mutex_;
    State state_;
    std::string drawn_; // the line on the terminal, empty for none
};

} // namespace orvald
