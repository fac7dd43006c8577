// SPDX-License-Identifier: LicenseRef-ORVALD
// Worker threads, and the event by which one is told to stop. A worker may not call the host,
// except where the host says so; processor faults on it are not guarded.
#pragma once

#include "kex/export.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace KEX {

/// Set by one thread, waited for by others; stays set until it is reset.
class KEX_BASE_API CEvent
{
public:
    void set();
    void reset();
    /// True as soon as the event is set, false when the time is over.
    bool wait(std::chrono::milliseconds longest);

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isSet_ = false;
};

/// Handle of a running thread. Closing waits for the thread's end, and so does the destructor.
class KEX_BASE_API CThreadHandle
{
public:
    CThreadHandle() = default;
    explicit CThreadHandle(std::thread&& thread) : thread_(std::move(thread)) {}
    CThreadHandle(CThreadHandle&&) = default;
    CThreadHandle& operator=(CThreadHandle&& other);
    ~CThreadHandle() { close(); }

    bool isClosed() const { return !thread_.joinable(); }
    void close();

private:
    std::thread thread_;
};

/// Starts `function(argument)` on a thread of its own; a closed handle when the system has none.
KEX_BASE_API CThreadHandle runThread(void (*function)(void*), void* argument);

} // namespace KEX
