// SPDX-License-Identifier: LicenseRef-ORVALD
// The status of a file from what the system's calls fill in.
#pragma once

#include "file_time.h"

#include <optional>
#include <string>

namespace kexos {

/// For openings that keep nobody out.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// From any of the records with these members, which have no type in common.
template <class Record>
FileStatus statusOf(const Record& record)
{
    constexpr std::uint32_t kTold = kReadOnly | kHidden | kSystem | kFolder | kArchive;
    FileStatus status;
    status.attributes = record.dwFileAttributes & kTold;
    status.size = std::uint64_t(record.nFileSizeHigh) << 32 | record.nFileSizeLow;
    status.written = ticksOf(record.ftLastWriteTime);
    // A file system that keeps no such time says 0.
    const auto known = [&](const FILETIME& time) {
        const bool kept = time.dwLowDateTime != 0 || time.dwHighDateTime != 0;
        return kept ? ticksOf(time) : status.written;
    };
    status.created = known(record.ftCreationTime);
    status.accessed = known(record.ftLastAccessTime);
    if (status.isFolder()) status.size = 0;
    return status;
}

/// Of a link to a file or folder; nothing when it leads nowhere.
std::optional<FileStatus> statusOfLink(const std::wstring& path);

} // namespace kexos
