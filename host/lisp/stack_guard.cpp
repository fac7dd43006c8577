// SPDX-License-Identifier: LicenseRef-ORVALD
#include "stack_guard.h"

#include <algorithm>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace orvald::lisp {

namespace {

// A builtin may need this much when it is called at the very end of the stack.
constexpr std::uintptr_t kReserve = std::uintptr_t{256} << 10;

std::uintptr_t findLimit()
{
    std::uintptr_t low = 0;
    std::uintptr_t size = 0;
#ifdef _WIN32
    ULONG_PTR begin = 0;
    ULONG_PTR end = 0;
    GetCurrentThreadStackLimits(&begin, &end);
    low = begin;
    size = end - begin;
#else
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
        void* address = nullptr;
        std::size_t bytes = 0;
        pthread_attr_getstack(&attributes, &address, &bytes);
        pthread_attr_destroy(&attributes);
        low = reinterpret_cast<std::uintptr_t>(address);
        size = bytes;
    }
#endif
    const std::uintptr_t here = stackAddress();
    if (size == 0 || here < low || here - low > size) {
        // Unknown: half a megabyte below here is there on every system.
        return here - (std::uintptr_t{512} << 10);
    }
    const std::uintptr_t reserve = std::min(kReserve, size / 4);
    const std::uintptr_t most = here > kMostStackBytes ? here - kMostStackBytes : 0;
    return std::max(low + reserve, most);
}

} // namespace

std::uintptr_t threadStackLimit()
{
    // Asking the system costs a file's reading on the main thread.
    static thread_local std::uintptr_t limit = 0;
    if (limit == 0) limit = findLimit();
    return limit;
}

} // namespace orvald::lisp
