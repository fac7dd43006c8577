// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/lock_files.h"

#include "kex/dialog.h"
#include "kex/files.h"
#include "kex/format.h"
#include "kex/message.h"
#include "kex/path_names.h"
#include "kexos/exclusive_file.h"
#include "kexos/time.h"

#include <algorithm>
#include <vector>

namespace KEX {
namespace {

constexpr std::string_view kBanner = "TARNOVEX Lock File";
constexpr int kRetryPause = 1000; // ms
// A lock file that somebody happens to be reading cannot be removed at once.
constexpr int kRemovals = 10;
constexpr int kRemovalPause = 20; // ms

struct LockExtension
{
    TextView file, lock; // without dot
};
constexpr LockExtension kLockExtensions[] = {
    {KT("ADT"), KT("ADK")}, {KT("DXB"), KT("DBK")}, {KT("DWG"), KT("DWK")}, {KT("DXX"), KT("DXK")},
    {KT("FLM"), KT("FLK")}, {KT("BAK"), KT("BKK")}, {KT("DXF"), KT("DFK")}, {KT("SHX"), KT("SXK")},
    {KT("SLD"), KT("SDK")}, {KT("TXT"), KT("TXK")}, {KT("PLT"), KT("PLK")}, {KT("PRP"), KT("PRK")},
    {KT("OLD"), KT("OLK")}, {KT("MNX"), KT("MXK")}, {KT("LST"), KT("LTK")}, {KT("LIN"), KT("LIK")},
    {KT("IGS"), KT("IGK")}, {KT("XLG"), KT("XLK")},
};

/// A lock that this process has taken since it began.
struct Lock
{
    CKexString name; // of the lock file
    bool held;
};

// Entries stay; giving a lock up clears `held`.
std::vector<Lock>& locks()
{
    static std::vector<Lock> list;
    return list;
}

Lock* findLock(const CKexString& name)
{
    const auto found = std::ranges::find(locks(), name, &Lock::name);
    return found == locks().end() ? nullptr : &*found;
}

/// Writes the lock file and remembers the lock. False when the lock file of another process has
/// come up in the meantime.
bool takeLock(const CKexString& name)
{
    Lock* const known = findLock(name);
    kexos::ExclusiveFile file;
    const kexos::OpenResult result = file.open(
        name.toUtf8(), known != nullptr ? kexos::OpenMode::replace : kexos::OpenMode::create);
    if (result == kexos::OpenResult::exists) return false;
    if (known != nullptr) known->held = true;
    else locks().push_back({name, true});
    // kept: where the lock file cannot be written the file counts as locked all the same
    if (result == kexos::OpenResult::opened) file.write(kBanner);
    return true;
}

void release(Lock& lock)
{
    lock.held = false;
    fileMakeWritable(lock.name);
    for (int i = 0; !fileRemove(lock.name) && fileExists(lock.name) && i < kRemovals; ++i) {
        kexos::sleepFor(kRemovalPause);
    }
}

} // namespace

CKexString lockFileName(TextView file)
{
    const CKexString extension = file_type(file);
    const TextView bare = TextView(extension).substr(extension.isNull() ? 0 : 1);
    if (bare.empty()) return (CKexString(file) + KT(".DWK")).makeLower();
    const auto known = std::ranges::find_if(
        kLockExtensions, [&](const LockExtension& one) { return equalNoCase(one.file, bare); });
    if (known == std::end(kLockExtensions)) return (CKexString(file) + KT(".lck")).makeLower();
    const TextView stem = file.substr(0, file.size() - bare.size());
    return (CKexString(stem) + known->lock).makeLower();
}

bool fileLock(TextView file, int retries)
{
    const CKexString name = fileNameUnc(file);
    const CKexString lockName = lockFileName(name);
    for (int tried = 0;; ++tried) {
        if (!fileLocked(name) && takeLock(lockName)) return true;
        if (tried >= retries) break;
        kexos::sleepFor(kRetryPause);
    }
    alert(format(KT("{} {}\n{}"), msgGet(KT("AD015"), KT("Datei")), name,
                 msgGet(KT("AD016"), KT("ist in Benutzung!"))));
    return false;
}

bool fileLocked(TextView file)
{
    if (!fileExists(file)) return false;
    const CKexString name = fileNameUnc(file);
    const CKexString lockName = lockFileName(name);
    if (const Lock* known = findLock(lockName)) return known->held;
    if (fileExists(lockName)) return true;
    kexos::ExclusiveFile trial;
    return trial.open(name.toUtf8(), kexos::OpenMode::read) != kexos::OpenResult::opened;
}

void fileUnlock(TextView file)
{
    Lock* const known = findLock(lockFileName(fileNameUnc(file)));
    if (known != nullptr && known->held) release(*known);
}

void fileUnlockAll()
{
    for (Lock& lock : locks()) {
        if (lock.held) release(lock);
    }
    locks().clear();
}

} // namespace KEX
