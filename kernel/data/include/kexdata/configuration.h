// SPDX-License-Identifier: LicenseRef-ORVALD
// The configuration store: one tree of settings in one file.
//
// Run-time keys live only while the program runs: a key that begins with "*" or ".", or is CURVER,
// leading "_" not counted and without regard to case. They are left out at every level when the
// tree is saved, and a change below one does not mark the tree as modified.
#pragma once

#include "kexdata/data_dir.h"

namespace KEX {

/// The tree. Changes made past the functions below do not mark it as modified.
KEX_DATA_API CKexDataDir& cfg_root();

/// The item at a key, null when it is absent. Holds until something is removed.
KEX_DATA_API const CKexDataItem* cfg_get(const CKexDataKey& key);
// The value at a key; false, and the argument left alone, when it is absent or of another kind. An
// integer counts as a real.
KEX_DATA_API bool cfg_get(const CKexDataKey& key, int& value);
KEX_DATA_API bool cfg_get(const CKexDataKey& key, double& value);
KEX_DATA_API bool cfg_get(const CKexDataKey& key, CKexString& value);

/// A length, which settings keep in millimetres, in a unit of Kex::lUnit, -1 for the drawing's; 0.0
/// when it is absent.
KEX_DATA_API double cfg_length(const CKexDataKey& key, int unit);

/// Puts a value at a key; nil removes it. False for the empty key and where a value stands on the
/// way.
KEX_DATA_API bool cfg_set(const CKexDataKey& key, CKexDataItem value);
/// The item at a key; when it is absent the given value is stored first. Null where cfg_set fails.
KEX_DATA_API const CKexDataItem* cfg_default(const CKexDataKey& key, CKexDataItem value);
/// False when the key is absent.
KEX_DATA_API bool cfg_rem(const CKexDataKey& key);
/// Keys of the directory at a key, of the root for the empty one, sorted; none when it is no
/// directory.
KEX_DATA_API CKexArrayTempl<CKexDataKey> cfg_dir(const CKexDataKey& key = CKexDataKey());
/// The directory at a key, made when it is absent; null for the empty key, and where a value stands
/// at it or on the way.
KEX_DATA_API CKexDataDir* cfg_mkdir(const CKexDataKey& key);

/// Reads a data file into the directory at a key, in place of what it held, under the file's lock.
/// False, and no change, when the file is missing, damaged, or locked for longer than the wait.
KEX_DATA_API bool cfg_bread(const CKexDataKey& key, TextView file);
/// Writes the directory at a key to a data file under the file's lock; false when it is none.
KEX_DATA_API bool cfg_bwrite(const CKexDataKey& key, TextView file);

KEX_DATA_API bool cfg_isRunTimeKey(const DataKeyView& key);
KEX_DATA_API bool cfg_modified();
KEX_DATA_API void cfg_modifiedSet(bool modified);

enum class CfgLoad
{
    loaded,
    missing,
    damaged
};
/// Empties the tree and reads it from a file, under its lock; the tree counts as unmodified then. A
/// file that is damaged, or of another version, is reported to the user and kept aside as a copy,
/// its name with ".bad"; the tree stays empty, and the file is not saved over before that copy
/// exists.
KEX_DATA_API CfgLoad cfg_load(TextView file);
/// Saves the tree when it is modified: sorted, without run-time keys, under the file's lock. The
/// modified mark is taken away first and stays away on failure, which is reported to the user. True
/// when there was nothing to save.
KEX_DATA_API bool cfg_save(TextView file);
/// Saves a copy of the tree in any case; the modified mark stays as it is.
KEX_DATA_API bool cfg_saveCopy(TextView file);

/// How long a lock of a configuration or data file is waited for, in milliseconds.
inline constexpr int kCfgLockWait = 15000;

} // namespace KEX
