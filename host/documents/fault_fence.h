// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's own fence around calls into a module: a processor fault that the module does not catch
// itself comes back as a code, so that the drawing can still be saved and the user told.
//
// What the module held when it faulted stays held: nothing of its stack is unwound.
#pragma once

#include <csetjmp>
#include <string>

namespace orvald {

class FaultFence
{
public:
    /// Installs the signal actions for the life of the object; the calling thread's calls are
    /// fenced.
    FaultFence();
    ~FaultFence();
    FaultFence(const FaultFence&) = delete;
    FaultFence& operator=(const FaultFence&) = delete;

    /// Runs `call` and gives 0, or the signal number of the fault that ended it.
    template <typename Call>
    static int run(Call&& call)
    {
        Frame frame;
        frame.outer = top_;
        const int signal = sigsetjmp(frame.buffer, 0);
        if (signal == 0) {
            top_ = &frame;
            struct Leave
            {
                Frame* outer;
                ~Leave() { top_ = outer; }
            } leave{frame.outer};
            call();
        } else {
            top_ = frame.outer;
        }
        return signal;
    }
    /// Name of a fault for the user: "segmentation fault" and the like.
    static std::string describe(int signal);

private:
    struct Frame
    {
        sigjmp_buf buffer;
        Frame* volatile outer;
    };
    static void onSignal(int signal, void* info, void* context);
    static Frame* volatile top_; // written by the one LISP thread only
    void* stack_ = nullptr;      // alternate signal stack, for overflows of the real one
};

} // namespace orvald
