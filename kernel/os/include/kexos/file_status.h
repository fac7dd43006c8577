// SPDX-License-Identifier: LicenseRef-ORVALD
// What the system knows about a file without opening it. Paths as in kexos/paths.h.
#pragma once

#include "kex/export.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kexos {

/// The bits of the Windows attributes. Elsewhere: read-only is a file that its owner may not write,
/// hidden a name that begins with ".", archive every file, system none.
enum FileAttribute : std::uint32_t
{
    kReadOnly = 0x1,
    kHidden = 0x2,
    kSystem = 0x4,
    kFolder = 0x10,
    kArchive = 0x20,
    kLink = 0x400 // leads elsewhere; the other values are those of what it leads to
};

/// Unit of file times: 100 ns, counted from 1970-01-01 00:00 UTC.
inline constexpr std::int64_t kTicksPerSecond = 10'000'000;

struct FileStatus
{
    std::uint32_t attributes = 0;
    std::uint64_t size = 0;   // bytes
    std::int64_t created = 0; // ticks; where the system keeps none, the time of the last change
    std::int64_t accessed = 0;
    std::int64_t written = 0;

    bool isFolder() const { return (attributes & kFolder) != 0; }
    bool isReadOnly() const { return (attributes & kReadOnly) != 0; }
    /// Whole seconds since 1970, those before it included.
    std::int64_t writtenSeconds() const { return secondsOf(written); }
    std::uint32_t lowSize() const { return static_cast<std::uint32_t>(size); }

    static std::int64_t secondsOf(std::int64_t ticks)
    {
        return ticks / kTicksPerSecond - (ticks % kTicksPerSecond < 0 ? 1 : 0);
    }
};

/// Of a file or folder; nothing when it does not exist.
KEX_BASE_API std::optional<FileStatus> fileStatus(const std::string& path);
/// Of a file or folder.
KEX_BASE_API bool fileExists(const std::string& path);
/// Takes the read-only attribute away; true also when the file does not exist.
KEX_BASE_API bool makeWritable(const std::string& path);

} // namespace kexos
