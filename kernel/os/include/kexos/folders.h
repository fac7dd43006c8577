// SPDX-License-Identifier: LicenseRef-ORVALD
// Folders and the disks that hold them. Paths as in kexos/paths.h.
#pragma once

#include "kexos/file_status.h"

#include <optional>
#include <string>
#include <vector>

namespace kexos {

/// Makes one folder; false when something of that name exists or the folder above is missing.
KEX_BASE_API bool makeFolder(const std::string& path);
/// Makes a folder with all folders above it; true when it exists afterwards.
KEX_BASE_API bool makeFolders(const std::string& path);

struct FoundFile
{
    std::string name;
    FileStatus status;
};

enum class FindDetail
{
    kind, // of the attributes kFolder, kLink, kHidden and kSystem; size and times may be 0
    full
};

/// All entries but "." and "..", in the system's order, behind what `entries` holds. An entry that
/// goes away while this reads, and a link that leads nowhere, may be missing. False when the folder
/// does not exist or cannot be read.
KEX_BASE_API bool listFolder(const std::string& path, FindDetail detail,
                             std::vector<FoundFile>& entries);

struct DiskSpace
{
    std::uint64_t total; // bytes
    std::uint64_t free;  // bytes that this user may still write
};

/// Of the disk that holds a folder; nothing when the folder does not exist.
KEX_BASE_API std::optional<DiskSpace> diskSpace(const std::string& path);

} // namespace kexos
