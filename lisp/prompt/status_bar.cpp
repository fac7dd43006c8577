// SPDX-License-Identifier: LicenseRef-ORVALD
// The animation's thread touches the host's meter and its stop event, nothing else; all the rest
// belongs to the LISP thread.
#include "prompt/status_bar.h"

#include "hostapi/user.h"
#include "kex/thread.h"

#include <algorithm>
#include <memory>

namespace KEX {
namespace {

constexpr int kFull = 100;

/// Steps of the animation: short intervals move further at once, so that the thread does not wake
/// for every one of them.
struct Pace
{
    int step;
    std::chrono::milliseconds wait;
};

Pace paceOf(int milliseconds)
{
    constexpr int kShort = 5, kBrief = 10;
    const int step = milliseconds < kShort ? 5 : milliseconds < kBrief ? 2 : 1;
    return {step, std::chrono::milliseconds(step * milliseconds)};
}

class Animation
{
public:
    ~Animation() { stop(); }

    void run(const ACHAR* text, int milliseconds)
    {
        if (!thread_.isClosed()) return;
        pace_ = paceOf(milliseconds);
        stopEvent_.reset();
        acedSetStatusBarProgressMeter(text, 0, kFull);
        thread_ = runThread([](void* self) { static_cast<Animation*>(self)->animate(); }, this);
    }
    void stop()
    {
        if (thread_.isClosed()) return;
        stopEvent_.set();
        thread_.close();
    }

private:
    void animate()
    {
        int position = 0;
        do {
            if (position >= kFull) position = 0;
            acedSetStatusBarProgressMeterPos(position);
            position += pace_.step;
        } while (!stopEvent_.wait(pace_.wait));
        acedRestoreStatusBar();
    }

    CEvent stopEvent_;
    Pace pace_{};
    CThreadHandle thread_; // the last member: it is joined before the others go
};

Animation animation;
std::unique_ptr<CAcadStatusBarProgress> progress;
unsigned newestSerial = 0;

} // namespace

CAcadStatusBarProgress::CAcadStatusBarProgress(const ACHAR* text, int low, int high)
    : low_(low), high_(high), serial_(++newestSerial)
{
    animation.stop();
    acedSetStatusBarProgressMeter(text == nullptr ? KT("") : text, low, high);
}

void CAcadStatusBarProgress::setPos(int position)
{
    acedSetStatusBarProgressMeterPos(std::clamp(position, low_, high_));
}

void CAcadStatusBarProgress::restore()
{
    if (active_ == 0) return;
    active_ = 0;
    if (serial_ == newestSerial) acedRestoreStatusBar();
}

void statusBarShow(const ACHAR* text)
{
    progress = std::make_unique<CAcadStatusBarProgress>(text, 0, kFull);
}

void statusBarMove(double fraction)
{
    if (progress == nullptr) return;
    // Cut while it is still a real: no integer holds every one. What is no number is no progress.
    const double position = fraction * kFull;
    progress->setPos(position >= kFull ? kFull : position >= 0.0 ? static_cast<int>(position) : 0);
}

void statusBarRun(const ACHAR* text, int milliseconds) { animation.run(text, milliseconds); }

void statusBarStop()
{
    animation.stop();
    progress.reset();
}

} // namespace KEX
