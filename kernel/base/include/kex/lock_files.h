// SPDX-License-Identifier: LicenseRef-ORVALD
// Lock files: with one beside it a LISP program marks a file as in use, for other sessions and
// other workstations. Only that the lock file exists counts, not what it holds.
//
// The process remembers the locks it has taken, and what it remembers wins over what lies on the
// disk: a file that it holds is in use for itself as well, and one that it has released is free,
// even if another process has locked it since. Paths in the form of dos_name.
#pragma once

#include "kex/string.h"

namespace KEX {

/// Name of a file's lock file, in small letters: for some extensions another extension (".dwg"
/// gives ".dwk"), for all others ".lck" behind them, and ".dwk" for a name without extension.
KEX_BASE_API CKexString lockFileName(TextView file);

/// Locks a file. While it is in use, tries again after a second, `retries` times; then says so in a
/// box and gives false. True also when the lock file cannot be written.
KEX_BASE_API bool fileLock(TextView file, int retries);
/// The file is locked, or open in another program. A file that does not exist never is.
KEX_BASE_API bool fileLocked(TextView file);
/// Gives up a lock that this process holds; any other is left alone.
KEX_BASE_API void fileUnlock(TextView file);
/// Gives up all locks that this process holds, and forgets those it held.
KEX_BASE_API void fileUnlockAll();

} // namespace KEX
