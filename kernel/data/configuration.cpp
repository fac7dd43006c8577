// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexdata/configuration.h"

#include "kex/dialog.h"
#include "kex/files.h"
#include "kex/format.h"
#include "kex/units.h"
#include "kexdata/bin_file.h"

namespace KEX {
namespace {

constexpr const ACHAR* kSaveFailed = KT("kann Konfiguration nicht sichern!");
constexpr const ACHAR* kDamaged =
    KT("Konfiguration ist beschädigt, es gelten die Vorgaben:\n{}\nDie alte Datei bleibt als {}");
constexpr const ACHAR* kUnreadable =
    KT("Konfiguration ist nicht lesbar, es gelten die Vorgaben:\n{}");

struct Store
{
    CKexDataDir root;
    bool modified = false;
    /// A damaged file of which no copy could be made yet; it must not be replaced.
    CKexString unsaved;
};

Store& store()
{
    static Store theStore;
    return theStore;
}

CKexString copyName(TextView file) { return CKexString(file) + KT(".bad"); }

/// Keeps a damaged file aside before anything replaces it; true when nothing is left to keep.
bool keepDamaged(TextView file)
{
    CKexString& unsaved = store().unsaved;
    if (!equalNoCase(unsaved, file)) return true;
    if (fileExists(file)) {
        const std::optional<std::string> bytes = fileRead(file);
        if (!bytes.has_value() || !fileSave(copyName(file), *bytes)) return false;
    }
    unsaved.clear();
    return true;
}

/// Writes a directory under the lock of its file; the caller has the lock.
bool writeTree(const CKexDataDir& tree, TextView file, const BinOptions& options)
{
    CBinFile target;
    return fileMakeWritable(file) && target.open(file, KT("w")) &&
           target.write(binEncode(tree, options)) && target.close();
}

bool saveTree(TextView file)
{
    const CFileLock lock(file, kCfgLockWait);
    const BinOptions options{true, cfg_isRunTimeKey};
    return lock.isLocked() && keepDamaged(file) && writeTree(store().root, file, options);
}

void changed(const CKexDataKey& key)
{
    if (!cfg_isRunTimeKey(key.first())) store().modified = true;
}

} // namespace

CKexDataDir& cfg_root() { return store().root; }

const CKexDataItem* cfg_get(const CKexDataKey& key) { return store().root.get(key); }

bool cfg_get(const CKexDataKey& key, int& value)
{
    const CKexDataItem* item = cfg_get(key);
    return item != nullptr && item->get(value);
}

bool cfg_get(const CKexDataKey& key, double& value)
{
    const CKexDataItem* item = cfg_get(key);
    return item != nullptr && item->get(value);
}

bool cfg_get(const CKexDataKey& key, CKexString& value)
{
    const CKexDataItem* item = cfg_get(key);
    return item != nullptr && item->get(value);
}

double cfg_length(const CKexDataKey& key, int unit)
{
    double length = 0.0;
    cfg_get(key, length);
    return acadUnitCv(length, Kex::kUnitMillimetre, unit);
}

bool cfg_set(const CKexDataKey& key, CKexDataItem value)
{
    if (key.isEmpty()) return false;
    if (value.isNil()) {
        cfg_rem(key);
        return true;
    }
    if (!store().root.set(key, std::move(value))) return false;
    changed(key);
    return true;
}

const CKexDataItem* cfg_default(const CKexDataKey& key, CKexDataItem value)
{
    if (const CKexDataItem* item = cfg_get(key)) return item;
    return cfg_set(key, std::move(value)) ? cfg_get(key) : nullptr;
}

bool cfg_rem(const CKexDataKey& key)
{
    if (!store().root.remove(key)) return false;
    changed(key);
    return true;
}

CKexArrayTempl<CKexDataKey> cfg_dir(const CKexDataKey& key)
{
    if (key.isEmpty()) return store().root.keys(true);
    const CKexDataItem* item = cfg_get(key);
    return item == nullptr || !item->isDir() ? CKexArrayTempl<CKexDataKey>()
                                             : item->getDir()->keys(true);
}

CKexDataDir* cfg_mkdir(const CKexDataKey& key)
{
    const CKexDataItem* item = cfg_get(key);
    const bool free = item == nullptr || item->isNil();
    if (free && !cfg_set(key, CKexDataItem::directory())) return nullptr;
    return store().root.get(key)->getDir();
}

bool cfg_bread(const CKexDataKey& key, TextView file)
{
    CKexDataItem content = CKexDataItem::directory();
    {
        const CFileLock lock(file, kCfgLockWait);
        if (!lock.isLocked() && !lock.isImpossible()) return false;
        if (!content.getDir()->loadFromFile(file)) return false;
    }
    const CKexDataItem* old = cfg_get(key);
    if (old != nullptr && !old->isDir() && !old->isNil()) return false;
    return cfg_set(key, std::move(content));
}

bool cfg_bwrite(const CKexDataKey& key, TextView file)
{
    const CKexDataItem* item = cfg_get(key);
    if (item == nullptr || !item->isDir()) return false;
    const CFileLock lock(file, kCfgLockWait);
    return lock.isLocked() && writeTree(*item->getDir(), file, BinOptions());
}

bool cfg_isRunTimeKey(const DataKeyView& key)
{
    const std::size_t start = key.text().find_first_not_of(KT('_'));
    if (start == TextView::npos) return false;
    const TextView name = key.text().substr(start);
    return name[0] == KT('*') || name[0] == KT('.') || equalNoCase(name, KT("CURVER"));
}

bool cfg_modified() { return store().modified; }

void cfg_modifiedSet(bool modified) { store().modified = modified; }

CfgLoad cfg_load(TextView file)
{
    // The tree is whole in every file that a save has left, so a lock that cannot be had, after the
    // wait, does not keep anybody from reading.
    const CFileLock lock(file, kCfgLockWait);
    store().root.clear();
    store().modified = false;
    store().unsaved.clear();
    if (!fileExists(file)) return CfgLoad::missing;
    if (store().root.loadFromFile(file)) return CfgLoad::loaded;

    store().unsaved = file;
    if (keepDamaged(file)) alert(format(kDamaged, file, fileNameOnly(copyName(file))));
    else alert(format(kUnreadable, file));
    return CfgLoad::damaged;
}

bool cfg_save(TextView file)
{
    if (!store().modified) return true;
    store().modified = false;
    if (saveTree(file)) return true;
    alert(kSaveFailed);
    return false;
}

bool cfg_saveCopy(TextView file) { return saveTree(file); }

} // namespace KEX
