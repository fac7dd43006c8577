// SPDX-License-Identifier: LicenseRef-ORVALD
// The cache of data items. The host's reactors say which objects, extension dictionaries and
// xrecords have changed; what that means for an item is looked at when the cache is used next, as
// nothing may be opened for it while the host tells.
#include "kexobj/data_cache.h"

#include "data_record.h"
#include "hostapi/documents.h"
#include "hostapi/lisp.h"
#include "hostapi/reactors.h"
#include "kex/dialog.h"
#include "kex/format.h"
#include "kex/message.h"
#include "kexdata/data_dir.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

namespace KEX {
namespace {

using Id = std::uint64_t;
Id idOf(AcDbObjectId id) { return id.asOldId(); }

/// Items that are only read may be that many before the oldest use of memory is given back.
constexpr std::size_t kManyItems = 4096;
/// Handles that a message names.
constexpr std::size_t kMostHandles = 10;

/// Locks the document of a drawing for write; nothing when it has none.
class DocumentLock
{
public:
    explicit DocumentLock(const AcDbDatabase* database)
        : document_(acDocManager->document(database)),
          locked_(document_ != nullptr &&
                  acDocManager->lockDocument(document_, AcAp::kWrite, nullptr, nullptr, false) ==
                      Acad::eOk)
    {
    }
    ~DocumentLock()
    {
        if (locked_) acDocManager->unlockDocument(document_);
    }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;

private:
    AcApDocument* document_;
    bool locked_;
};

/// Objects that a message to the user names by their handles.
class Named
{
public:
    bool isEmpty() const { return count_ == 0; }
    void add(AcDbObjectId id)
    {
        ACHAR handle[17];
        if (++count_ > kMostHandles || !id.handle().getIntoAsciiBuffer(handle, std::size(handle)))
            return;
        text_ = text_ + KT(" ") + handle;
    }
    CKexString text() const { return count_ > kMostHandles ? text_ + KT(" ...") : text_; }

private:
    std::size_t count_ = 0;
    CKexString text_;
};

void tellNotWritten(const Named& objects)
{
    if (objects.isEmpty()) return;
    alert(msgGet(KT("OBJ001"), KT("Daten sind nicht in der Zeichnung gespeichert, Objekte:")) +
          objects.text());
}

void tellWrittenOver(const Named& objects)
{
    if (objects.isEmpty()) return;
    const CKexString line =
        msgGet(KT("OBJ002"), KT("Inzwischen geänderte Daten sind überschrieben, Objekte:")) +
        objects.text();
    acutPrintf(KT("%s\n"), line.c_str());
}

class Cache
{
public:
    Cache() { CKexDataDir(); } // the pool of key texts lives longer than the items here

    std::shared_ptr<CKexDataItem> item(AcDbObjectId id, bool create);
    bool flush(AcDbObjectId id);
    /// Of all drawings for null.
    bool close(const AcDbDatabase* database);
    void discard();

    // What the host tells.
    void touched(AcDbObjectId id);
    void goodbye(const AcDbDatabase* database);

private:
    struct Entry
    {
        std::shared_ptr<CKexDataItem> item;
        AcDbDatabase* database = nullptr;
        // Where the item stood when it was read or written; null when there was none.
        AcDbObjectId dictionary, record;
        bool changed = false;   // has changes of its own
        bool rewritten = false; // the record has changed since
        bool overtaken = false; // so has what it holds, under changes of its own
        bool told = false;      // the user knows that it could not be written
    };
    using Entries = std::map<Id, Entry>; // in the order in which they are written

    class ObjectReactor final : public AcDbDatabaseReactor
    {
        void objectUnAppended(const AcDbDatabase*, const AcDbObject* object) override;
        void objectReAppended(const AcDbDatabase*, const AcDbObject* object) override;
        void objectModified(const AcDbDatabase*, const AcDbObject* object) override;
        void objectErased(const AcDbDatabase*, const AcDbObject* object, bool) override;
        void goodbye(const AcDbDatabase* database) override;
    };
    class DocumentReactor final : public AcApDocManagerReactor
    {
        void documentToBeDeactivated(AcApDocument* document) override;
    };
    /// While an object is written, what the host tells of it is no news.
    class Writing
    {
    public:
        Writing(Cache& cache, Id id) : cache_(cache) { cache_.writing_ = id; }
        ~Writing() { cache_.writing_ = 0; }
        Writing(const Writing&) = delete;
        Writing& operator=(const Writing&) = delete;

    private:
        Cache& cache_;
    };

    static bool isEmpty(const CKexDataItem& item)
    {
        return item.isNil() || (item.isDir() && item.getDir()->isEmpty());
    }
    std::shared_ptr<CKexDataItem> load(AcDbObjectId id, bool create);
    bool write(AcDbObjectId id, Entry& entry);
    void refresh();
    static AcDbObjectId holderOf(AcDbObjectId id);
    static AcDbObjectId homeOf(AcDbObjectId id, const Entry& entry);
    bool isStillGood(AcDbObjectId id, Entry& entry);

    void insert(Id id, Entry entry);
    void remove(Entries::iterator at);
    void watchPlaces(Id id, const Entry& entry);
    void forgetPlaces(const Entry& entry);
    void watch(AcDbDatabase* database);
    /// Takes the reactors from drawings without items here.
    void leaveDrawings();
    void dropUnused();

    Entries entries_;
    std::unordered_map<Id, Id> objects_; // by their extension dictionaries and xrecords
    std::set<Id> stale_;                 // objects whose items must be looked at
    Id writing_ = 0;
    std::size_t limit_ = kManyItems;
    std::set<AcDbDatabase*> databases_; // that have the reactor
    ObjectReactor objectReactor_;
    DocumentReactor documentReactor_;
};

Cache& cache()
{
    static Cache theCache;
    return theCache;
}

// ---- what the host tells

void Cache::ObjectReactor::objectUnAppended(const AcDbDatabase*, const AcDbObject* object)
{
    cache().touched(object->objectId());
}
void Cache::ObjectReactor::objectReAppended(const AcDbDatabase*, const AcDbObject* object)
{
    cache().touched(object->objectId());
}
void Cache::ObjectReactor::objectModified(const AcDbDatabase*, const AcDbObject* object)
{
    cache().touched(object->objectId());
}
void Cache::ObjectReactor::objectErased(const AcDbDatabase*, const AcDbObject* object, bool)
{
    cache().touched(object->objectId());
}
void Cache::ObjectReactor::goodbye(const AcDbDatabase* database) { cache().goodbye(database); }

void Cache::DocumentReactor::documentToBeDeactivated(AcApDocument* document)
{
    cache().close(document->database());
}

void Cache::touched(AcDbObjectId id)
{
    const auto place = objects_.find(idOf(id));
    const Id object = place == objects_.end() ? idOf(id) : place->second;
    const auto found = entries_.find(object);
    if (found == entries_.end() || object == writing_) return;
    if (found->second.record == id) found->second.rewritten = true;
    stale_.insert(object);
}

void Cache::goodbye(const AcDbDatabase* database)
{
    Named lost;
    for (auto at = entries_.begin(); at != entries_.end();) {
        const auto next = std::next(at);
        if (at->second.database == database) {
            if (at->second.changed && !at->second.told) lost.add(AcDbObjectId(at->first));
            remove(at);
        }
        at = next;
    }
    std::erase_if(databases_, [=](const AcDbDatabase* one) { return one == database; });
    leaveDrawings();
    tellNotWritten(lost);
}

void Cache::watch(AcDbDatabase* database)
{
    if (databases_.empty()) acDocManager->addReactor(&documentReactor_);
    if (databases_.insert(database).second) database->addReactor(&objectReactor_);
}

void Cache::leaveDrawings()
{
    std::set<AcDbDatabase*> used;
    for (const auto& [id, entry] : entries_) used.insert(entry.database);
    for (const AcDbDatabase* database : databases_)
        if (!used.contains(const_cast<AcDbDatabase*>(database)))
            database->removeReactor(&objectReactor_);
    databases_ = std::move(used);
    if (databases_.empty()) acDocManager->removeReactor(&documentReactor_);
}

// ---- items and their places

void Cache::watchPlaces(Id id, const Entry& entry)
{
    if (!entry.dictionary.isNull()) objects_[idOf(entry.dictionary)] = id;
    if (!entry.record.isNull()) objects_[idOf(entry.record)] = id;
}

void Cache::forgetPlaces(const Entry& entry)
{
    objects_.erase(idOf(entry.dictionary));
    objects_.erase(idOf(entry.record));
}

void Cache::insert(Id id, Entry entry)
{
    watchPlaces(id, entry);
    entries_.insert_or_assign(id, std::move(entry));
}

void Cache::remove(Entries::iterator at)
{
    forgetPlaces(at->second);
    entries_.erase(at);
}

void Cache::dropUnused()
{
    for (auto at = entries_.begin(); at != entries_.end();) {
        const auto next = std::next(at);
        if (!at->second.changed && at->second.item.use_count() == 1) remove(at);
        at = next;
    }
    limit_ = std::max(kManyItems, 2 * entries_.size());
}

/// The object under which an item is kept: for an object's data xrecord that object.
AcDbObjectId Cache::holderOf(AcDbObjectId id)
{
    if (id.objectClass() != AcDbXrecord::desc()) return id;
    const OpenObject<AcDbXrecord> record(id);
    const AcDbObjectId object = record ? objectOf(*record) : AcDbObjectId();
    return object.isNull() ? id : object;
}

/// The object that the item belongs to now: its xrecord may hold the data of another one.
AcDbObjectId Cache::homeOf(AcDbObjectId id, const Entry& entry)
{
    const AcDbObjectId holder = holderOf(entry.record);
    return holder == entry.record ? id : holder;
}

/// Brings the places of an item up to date. False when it must be read again, or never more.
bool Cache::isStillGood(AcDbObjectId id, Entry& entry)
{
    const OpenObject<AcDbObject> object(id, AcDb::kForRead, true);
    if (!object) {
        if (object.status() == Acad::ePermanentlyErased) return false;
        stale_.insert(idOf(id)); // somebody writes it: later
        return true;
    }
    const AcDbObjectId record = dataRecord(*object);
    const bool rewritten = std::exchange(entry.rewritten, false) || record != entry.record;
    entry.dictionary = object->extensionDictionary();
    entry.record = record;
    entry.overtaken |= rewritten;
    return !rewritten || entry.changed;
}

void Cache::refresh()
{
    if (stale_.empty()) return;
    // All are taken out before the first is put back: two may have changed places.
    std::vector<std::pair<AcDbObjectId, Entry>> items;
    for (const Id id : std::exchange(stale_, {})) {
        const auto found = entries_.find(id);
        if (found == entries_.end()) continue;
        items.emplace_back(id, found->second);
        remove(found);
    }
    std::map<Id, AcDbObjectId> cameFrom;
    std::ranges::stable_partition(items,
                                  [](const auto& item) { return !item.second.record.isNull(); });
    for (auto& [id, entry] : items) {
        AcDbObjectId home = homeOf(id, entry);
        // One without a record gives way to the one that came to its object.
        if (const auto left = cameFrom.find(idOf(home)); left != cameFrom.end())
            home = left->second;
        if (home != id) cameFrom[idOf(home)] = id;
        if (isStillGood(home, entry)) insert(idOf(home), std::move(entry));
    }
}

std::shared_ptr<CKexDataItem> Cache::load(AcDbObjectId id, bool create)
{
    const OpenObject<AcDbObject> object(id, create ? AcDb::kForWrite : AcDb::kForRead);
    if (!object) return nullptr;
    Entry entry;
    entry.database = object->database();
    entry.dictionary = object->extensionDictionary();
    entry.record = dataRecord(*object);
    entry.changed = create;
    std::unique_ptr<CKexDataItem> item;
    if (!entry.record.isNull()) {
        const OpenObject<AcDbXrecord> other(entry.record == id ? AcDbObjectId() : entry.record);
        const AcDbXrecord* record = other ? other.get() : AcDbXrecord::cast(object.get());
        if (record == nullptr) return nullptr; // something else has the name
        const CSmartResbuf groups = groupsOf(*record);
        if (create && !isOurs(*record, itemForm(groups))) return nullptr;
        item = itemFromGroups(groups);
    }
    if (item == nullptr && !create) return nullptr;
    if (item == nullptr) item = std::make_unique<CKexDataItem>(CKexDataItem::directory());
    entry.item = std::move(item);

    if (entries_.size() >= limit_) dropUnused();
    watch(entry.database);
    std::shared_ptr<CKexDataItem> result = entry.item;
    insert(idOf(id), std::move(entry));
    return result;
}

std::shared_ptr<CKexDataItem> Cache::item(AcDbObjectId id, bool create)
{
    refresh();
    if (id.isErased()) return nullptr;
    id = holderOf(id);
    const auto found = entries_.find(idOf(id));
    if (found == entries_.end()) return load(id, create);
    Entry& entry = found->second;
    if (!create) return entry.changed && isEmpty(*entry.item) ? nullptr : entry.item;
    if (!entry.changed && !OpenObject<AcDbObject>(id, AcDb::kForWrite)) return nullptr;
    entry.changed = true;
    if (entry.item->isNil()) entry.item->mkDir();
    return entry.item;
}

// ---- writing

bool Cache::write(AcDbObjectId id, Entry& entry)
{
    const Writing writing(*this, idOf(id));
    const OpenObject<AcDbObject> object(id, AcDb::kForWrite, true);
    if (!object || !xrSet(*object, isEmpty(*entry.item) ? nullptr : entry.item.get())) return false;
    forgetPlaces(entry);
    entry.dictionary = object->extensionDictionary();
    entry.record = dataRecord(*object);
    watchPlaces(idOf(id), entry);
    entry.changed = entry.told = false;
    return true;
}

bool Cache::flush(AcDbObjectId id)
{
    refresh();
    id = holderOf(id);
    const auto found = entries_.find(idOf(id));
    if (found == entries_.end() || !found->second.changed) return true;
    const DocumentLock lock(found->second.database);
    if (!write(id, found->second)) return false;
    Named writtenOver;
    if (std::exchange(found->second.overtaken, false)) writtenOver.add(id);
    tellWrittenOver(writtenOver);
    // Who still holds the item may change it, which would not be written.
    if (found->second.item.use_count() > 1 || isEmpty(*found->second.item)) remove(found);
    return true;
}

bool Cache::close(const AcDbDatabase* database)
{
    refresh();
    std::vector<Id> ids;
    for (const auto& [id, entry] : entries_)
        if (database == nullptr || entry.database == database) ids.push_back(id);
    Named failed, writtenOver;
    std::optional<DocumentLock> lock;
    const AcDbDatabase* locked = nullptr;
    for (const Id id : ids) {
        const auto found = entries_.find(id);
        if (found == entries_.end()) continue;
        Entry& entry = found->second;
        if (entry.changed) {
            if (locked != entry.database) {
                lock.reset();
                lock.emplace(entry.database);
                locked = entry.database;
            }
            if (!write(AcDbObjectId(id), entry)) {
                failed.add(AcDbObjectId(id));
                entry.told = true;
                continue;
            }
            if (entry.overtaken) writtenOver.add(AcDbObjectId(id));
        }
        remove(found);
    }
    lock.reset();
    leaveDrawings();
    tellWrittenOver(writtenOver);
    tellNotWritten(failed);
    return failed.isEmpty();
}

void Cache::discard()
{
    entries_.clear();
    objects_.clear();
    stale_.clear();
    leaveDrawings();
}

} // namespace

std::shared_ptr<CKexDataItem> xd_init(AcDbObjectId id, bool create)
{
    return cache().item(id, create);
}

const CKexDataItem* xd_get(AcDbObjectId id, const CKexDataKey& key)
{
    const std::shared_ptr<CKexDataItem> item = xd_init(id, false);
    return item == nullptr ? nullptr : std::as_const(*item).find(key); // the cache holds it, too
}

bool xd_remove(AcDbObjectId id, const CKexDataKey& key)
{
    if (xd_get(id, key) == nullptr) return false;
    const std::shared_ptr<CKexDataItem> item = xd_init(id, true);
    return item != nullptr && item->remove(key);
}

bool xd_flush(AcDbObjectId id) { return cache().flush(id); }

bool xd_close(bool discard)
{
    if (!discard) return cache().close(nullptr);
    cache().discard();
    return true;
}

bool xd_close(AcDbDatabase* database) { return database == nullptr || cache().close(database); }

} // namespace KEX
