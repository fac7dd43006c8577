// SPDX-License-Identifier: LicenseRef-ORVALD
// Windows counts 100 ns as well, but from 1601-01-01.
#pragma once

#include "kexos/file_status.h"
#include "windows_api.h"

namespace kexos {

/// From 1601 to 1970.
inline constexpr std::int64_t kTicksBefore1970 = 116'444'736'000'000'000;

inline std::int64_t ticksOf(const FILETIME& time)
{
    return (std::int64_t(time.dwHighDateTime) << 32 | time.dwLowDateTime) - kTicksBefore1970;
}

inline FILETIME fileTimeOf(std::int64_t ticks)
{
    const auto all = static_cast<std::uint64_t>(ticks + kTicksBefore1970);
    return {static_cast<DWORD>(all), static_cast<DWORD>(all >> 32)};
}

} // namespace kexos
