// SPDX-License-Identifier: LicenseRef-ORVALD
// How much of the machine stack is left. Recursion is limited by bytes, whatever build and thread
// it runs in.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvald::lisp {

/// Address of the running function's frame; the stack grows downwards.
inline std::uintptr_t stackAddress()
{
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

/// Lowest address that recursion may use on the running thread. Below it a reserve is left for
/// builtins and for reporting the error.
std::uintptr_t threadStackLimit();

/// No more than this of a thread's stack is ever used; the other stacks are sized after it.
inline constexpr std::size_t kMostStackBytes = std::size_t{32} << 20;

} // namespace orvald::lisp
