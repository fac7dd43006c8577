// SPDX-License-Identifier: LicenseRef-ORVALD
// Listing folders: which entries, in which order, and what they sum up to. Paths in the form of
// dos_name. A pattern is a folder and, behind its last "\", wildcards: "*" is any run of units, "?"
// any one, letters are equal without regard to case, and "*.*", like nothing, is every name.
#pragma once

#include "kex/array.h"
#include "kex/string.h"

#include <cstdint>
#include <optional>

namespace KEX {

/// Attributes for the mask of fileDir.
enum FileMask
{
    kFileReadOnly = 0x1,
    kFileHidden = 0x2,
    kFileSystem = 0x4,
    kFileFolder = 0x10,
    kFileArchive = 0x20,
    kFileOnly = 0x8000
};

/// Names of the entries that match, without their folder. Plain files always; hidden ones, those of
/// the system and folders only when the mask has their bit, "." and ".." never. With kFileOnly only
/// entries that have all the other bits of the mask. In the order of the names without regard to
/// case, then, stably, of dir_cmp. None when there is no such folder.
KEX_BASE_API CKexArrayTempl<CKexString> fileDir(TextView pattern, int mask);

/// Sort keys of dir_cmp; all other numbers leave the order alone.
enum DirKey
{
    kDirByName = 1,
    kDirByExtension = 2,
    kDirBySize = 3,
    kDirByTime = 4
};
/// Settings of dir_cmp for this process, 0 and 0 at first. Without a direction that of before
/// stays.
KEX_BASE_API void dirModeSet(int key, std::optional<int> direction);

/// An entry as dir_cmp takes it: the find-data record of the C run-time.
struct DirEntry
{
    static constexpr int kNameRoom = 260;

    std::uint32_t attributes;
    std::int64_t created, accessed, written; // seconds since 1970-01-01 00:00 UTC
    std::uint32_t size;
    ACHAR name[kNameRoom]; // with an end mark when it is shorter
};

struct FolderSums
{
    int count;           // files that match, folders not counted
    std::int32_t size;   // of these files, in 32 bits with a sign: beyond 2 GB it turns negative
    std::uint32_t free;  // of the drive, the low 32 bits
    std::uint32_t total; // of the drive, the low 32 bits
};
/// The drive is the one that the folder's first unit names; 0 for its sizes when there is none.
KEX_BASE_API FolderSums folderSums(TextView folder, TextView pattern);

/// Takes the read-only attribute from every file below a folder. Does not enter folders that are
/// hidden, begin with "." or lead elsewhere.
KEX_BASE_API void clearReadOnly(TextView folder);

} // namespace KEX

extern "C" {
/// Compares two KEX::DirEntry for a sort, -1, 0 or 1, by the settings of dirModeSet. By name: in
/// capitals, with "." before everything else. By extension, from the last "." on, then by name; by
/// size, then by name, both without regard to case. By time, its low 32 bits, then by name as by
/// name. A direction other than 0 sorts by extension upwards, by all else downwards.
KEX_BASE_API int dir_cmp(const void* a, const void* b);
}
