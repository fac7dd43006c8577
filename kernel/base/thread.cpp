// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/thread.h"

#include "kex/object.h"

#include <system_error>

// The key function: the class's run-time type lives in this library.
CKexObject::~CKexObject() = default;

namespace KEX {

void CEvent::set()
{
    {
        const std::lock_guard lock(mutex_);
        isSet_ = true;
    }
    changed_.notify_all();
}

void CEvent::reset()
{
    const std::lock_guard lock(mutex_);
    isSet_ = false;
}

bool CEvent::wait(std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, longest, [this] { return isSet_; });
}

CThreadHandle& CThreadHandle::operator=(CThreadHandle&& other)
{
    close();
    thread_ = std::move(other.thread_);
    return *this;
}

void CThreadHandle::close()
{
    if (thread_.joinable()) thread_.join();
}

CThreadHandle runThread(void (*function)(void*), void* argument)
{
    try {
        return CThreadHandle(std::thread(function, argument));
    } catch (const std::system_error&) {
        return {};
    }
}

} // namespace KEX
