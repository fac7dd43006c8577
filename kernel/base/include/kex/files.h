// SPDX-License-Identifier: LicenseRef-ORVALD
// Files of the kernel: reading, saving as a whole, copying, removing, locking, and where its own
// files lie. Paths have the kernel's form ("C:\work\plan.dwg"); a path of the system ("/home/x") is
// taken as well.
#pragma once

#include "kex/path_names.h"
#include "kex/string.h"
#include "kexos/file_lock.h"

#include <optional>

namespace KEX {

/// All bytes of a file; nothing when it is missing or cannot be read to its end.
KEX_BASE_API std::optional<std::string> fileRead(TextView file);
/// Replaces the file as a whole: the old one or the new one is complete at every moment. False on
/// failure; then the old one is there still, or the new one could not be made durable.
KEX_BASE_API bool fileSave(TextView file, std::string_view bytes);
/// A file or a folder.
KEX_BASE_API bool fileExists(TextView file);
/// Gives a file normal attributes, so that it can be written; true also when it does not exist.
KEX_BASE_API bool fileMakeWritable(TextView file);

/// False when the target exists, and when the copy cannot be made whole; then there is none.
KEX_BASE_API bool fileCopy(TextView source, TextView target);
/// Renames or moves a file or folder; false when the new name is taken by another, and when the
/// file is in use.
KEX_BASE_API bool fileRename(TextView old, TextView fresh);
/// False for a folder, a read-only file and one in use.
KEX_BASE_API bool fileRemove(TextView file);
/// Makes a folder with those above it. The success of the last one made, so false for a folder that
/// exists already.
KEX_BASE_API bool fileMkdir(TextView folder);
/// The file can be opened for reading and writing by this program alone. A file that does not exist
/// is made for the trial, and removed.
KEX_BASE_API bool fileAccess(TextView file);

/// Date and time of a file's last change as str_date and str_time write them, and its size.
struct FileInfo
{
    CKexString date;
    CKexString time;
    std::uint32_t size; // the low 32 bits
};
/// Nothing when there is no such file or folder.
KEX_BASE_API std::optional<FileInfo> fileInfo(TextView file);
/// `a` does not exist or was written before `b`; false when only `b` does not exist.
KEX_BASE_API bool fileIsOlder(TextView a, TextView b);

/// Folder for temporary files, with a "\" at the end.
KEX_BASE_API CKexString tmp_dir();
/// Name of a file in tmp_dir that does not exist: the prefix, 8 hexadecimal digits, ".tmp". No file
/// is made.
KEX_BASE_API CKexString tmp_nam(TextView prefix);
/// Full name of a data file of the kernel. With `own` in the user's folder for settings, which is
/// made when it is missing; else where the host's search path has the file, and when it has none
/// again in the user's folder.
KEX_BASE_API CKexString dataFileName(TextView name, bool own);

/// Keeps other processes, and other lock objects, from a file while it lives. What is locked is a
/// companion beside it, its name with ".lk", which stays behind: so the file itself can be replaced
/// while the lock is held.
class KEX_BASE_API CFileLock
{
public:
    /// Tries every 20 to 50 ms until the lock is there or the time is over.
    CFileLock(TextView file, int waitMilliseconds);
    bool isLocked() const { return result_ == kexos::LockResult::locked; }
    /// The companion cannot be made, as in a folder that may only be read. Nobody who is in the
    /// same position could change the file, so a reader may go on.
    bool isImpossible() const { return result_ == kexos::LockResult::failed; }

private:
    kexos::FileLock lock_;
    kexos::LockResult result_;
};

} // namespace KEX
