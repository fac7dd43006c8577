// SPDX-License-Identifier: LicenseRef-ORVALD
// Objects of a drawing through classes: opening, erasing, extended data, extension dictionaries,
// dictionaries and xrecords. An object that is open belongs to the host; each successful opening
// needs one close. A new object (made with new) belongs to its maker until it is set into a
// dictionary: then it is open for write and wants a close as well.
#pragma once

#include "hostapi/database.h"
#include "hostapi/geometry.h"
#include "hostapi/resbuf.h"

#include <memory>

class HOST_API AcDbObject : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbObject)
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;
    ~AcDbObject() override;

    /// Null for a new object, as all of these are.
    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const;
    void getAcDbHandle(AcDbHandle& handle) const;
    AcDbDatabase* database() const;

    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNotifyEnabled() const;
    bool isNewObject() const; // not in a database yet
    /// Changed since it was opened for write.
    bool isModified() const;
    /// Changed so that it looks different: a change that recordGraphicsModified(false) did not mark
    /// as one of data only.
    bool isModifiedGraphics() const;

    /// Ends one opening. eNotInDatabase for a new object. The pointer is not good for anything
    /// after the last one.
    Acad::ErrorStatus close();
    /// From the one reader to a writer. eHadMultipleReaders, eWasOpenForWrite, eWasNotifying,
    /// eLockViolation, eOnLockedLayer.
    Acad::ErrorStatus upgradeOpen();
    /// From the writer to a reader. eNotOpenForWrite, eWasNotifying.
    Acad::ErrorStatus downgradeOpen();

    /// Erases, or restores with false. An object that is erased leaves its dictionary and does not
    /// come back to it by itself. eNotOpenForWrite, eWasErased, eWasNotErased, eNotInDatabase;
    /// eCannotBeErasedByCaller for what every drawing must have and for parts of entities.
    Acad::ErrorStatus erase(bool erasing = true);
    bool isErased() const;

    /// Copy of the extended data, all of it or one application's, from 1001 on; null when there is
    /// none. The caller frees it.
    resbuf* xData(const ACHAR* application = nullptr) const;
    /// Replaces the data of each application that the chain names with 1001; 1001 alone takes it
    /// away. eInvalidInput (malformed, null), eRegappIdNotFound, eXdataSizeExceeded.
    Acad::ErrorStatus setXData(const resbuf* data);

    /// Null when there is none; an erased one is still told.
    AcDbObjectId extensionDictionary() const;
    /// eAlreadyInDb when there is one, even an erased one; eNotInDatabase for a new object.
    Acad::ErrorStatus createExtensionDictionary();
    /// Erases the dictionary and cuts the link. eContainerNotEmpty while it has entries;
    /// eKeyNotFound when there is none.
    Acad::ErrorStatus releaseExtensionDictionary();

    /// Does nothing when it is one already. eNullObjectId, eWrongDatabase.
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
    /// eKeyNotFound when it is none.
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
    bool hasPersistentReactor(AcDbObjectId reactor) const;

    /// Two entities, or two objects, change ids and handles. Owner, place in the owner and
    /// persistent reactors stay with the id; parts and entries go with the object. With a flag true
    /// extended data or extension dictionary stay with the id as well, else they go along. This
    /// object is open for write, the other one for write or closed. eNoDatabase, eWrongDatabase,
    /// eNullObjectId, eNotThatKindOfClass (an entity and an object, table records, parts),
    /// eWasOpenForRead, eWasNotifying.
    Acad::ErrorStatus swapIdWith(AcDbObjectId other, bool swapXdata = false,
                                 bool swapExtensionDictionary = false);

protected:
    struct State;
    friend class AcDbObjectAccess; // the host
    explicit AcDbObject(std::unique_ptr<State> state);
    State& state() const { return *state_; }

private:
    std::unique_ptr<State> state_;
};

class HOST_API AcDbEntity : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity)
    ~AcDbEntity() override;

    /// With false the changes so far were of data only: the entity looks as before.
    void recordGraphicsModified(bool modified = true);
    /// Block record that the entity or its entity stands in.
    AcDbObjectId blockId() const;
    AcDbObjectId layerId() const;

    /// World box of what is drawn: curves exactly, texts by an average width, inserts by their
    /// content. eNullExtents when nothing of the entity has a place.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    /// Maps the entity with its parts. eNotOpenForWrite; eCannotScaleNonUniformly when the image
    /// would be no entity of its kind; eNotApplicable for kinds that the host does not know.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map);

protected:
    friend class AcDbObjectAccess;
    using AcDbObject::AcDbObject;
};

namespace AcRx {
enum DictIterType : int
{
    kDictSorted = 0, // by key, without regard to case
    kDictCollated = 1
};
} // namespace AcRx

/// Walks a dictionary; belongs to the caller and may outlive changes of the dictionary, but not its
/// closing. Erased entries are passed over.
class HOST_API AcDbDictionaryIterator : public AcRxObject
{
public:
    /// Key of the present entry, good until the next step; "" at the end.
    virtual const ACHAR* name() const = 0;
    virtual AcDbObjectId objectId() const = 0;
    virtual Acad::ErrorStatus getObject(AcDbObject*& object,
                                        AcDb::OpenMode mode = AcDb::kForRead) const = 0;
    virtual bool done() const = 0;
    /// False at the end.
    virtual bool next() = 0;
    ~AcDbDictionaryIterator() override;
};

/// Keys are compared without regard to case and keep theirs. Entries are told in key order.
class HOST_API AcDbDictionary : public AcDbObject
{
public:
    AcDbDictionary();
    ACRX_DECLARE_MEMBERS(AcDbDictionary)
    ~AcDbDictionary() override;

    std::uint32_t numEntries() const; // erased ones not counted
    bool has(const ACHAR* key) const;
    bool has(AcDbObjectId object) const;
    /// eKeyNotFound.
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObjectId& id) const;
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObject*& object,
                            AcDb::OpenMode mode = AcDb::kForRead) const;
    /// Key of an entry; the caller frees it with acutDelString. eKeyNotFound.
    Acad::ErrorStatus nameAt(AcDbObjectId id, ACHAR*& key) const;
    /// Enters a new object, which becomes resident and stays open for write, or a resident one
    /// without owner; the dictionary becomes its owner and persistent reactor. A key that is taken:
    /// the object there is erased. Key "*": an anonymous one, "*A" and a number. eNotOpenForWrite,
    /// eNullObjectPointer, eInvalidKey, eNotInDatabase (this dictionary is new itself),
    /// eWrongDatabase, eAlreadyInDb (the object has an owner), eNotThatKindOfClass (an entity, or a
    /// dictionary that this one stands in).
    Acad::ErrorStatus setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id);
    /// Takes an entry out without erasing it: it has no owner then. eKeyNotFound.
    Acad::ErrorStatus remove(const ACHAR* key);
    Acad::ErrorStatus remove(const ACHAR* key, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    /// False when there is no such key, the new one is taken or no key. "*" makes an anonymous one.
    bool setName(const ACHAR* from, const ACHAR* to);

    /// Hard owners keep their entries in copies and purges.
    bool isTreatElementsAsHard() const;
    Acad::ErrorStatus setTreatElementsAsHard(bool hard);
    /// What becomes of entries whose key is taken when this dictionary is copied.
    AcDb::DuplicateRecordCloning mergeStyle() const;
    Acad::ErrorStatus setMergeStyle(AcDb::DuplicateRecordCloning style);

    /// The caller deletes it.
    AcDbDictionaryIterator* newIterator(AcRx::DictIterType type = AcRx::kDictSorted) const;

private:
    friend class AcDbObjectAccess;
    using AcDbObject::AcDbObject;
};

/// Groups of any kind in the order given.
class HOST_API AcDbXrecord : public AcDbObject
{
public:
    AcDbXrecord();
    ACRX_DECLARE_MEMBERS(AcDbXrecord)
    ~AcDbXrecord() override;

    /// Replaces all groups; nothing has changed after a failure. Group codes 1 to 369 that have a
    /// value of their own: not 5, 100, 105, nor the y and z of points, which are part of their x
    /// (eInvalidDxfCode). eInvalidInput: a real that is not finite, text of a handle that is none,
    /// a name of no drawing; eWrongDatabase: one of another drawing than the record's, or than
    /// `database` for a new record. Binary data is kept in pieces of 127 bytes.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* database = nullptr);
    /// Takes all groups away.
    Acad::ErrorStatus clear();
    /// A copy that the caller frees; eOk and null for an empty record.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* database = nullptr) const;

    /// True: copies of the record name the copies of what it names. Kept for the session.
    bool isXlateReferences() const;
    Acad::ErrorStatus setXlateReferences(bool translate);
    AcDb::DuplicateRecordCloning mergeStyle() const;
    Acad::ErrorStatus setMergeStyle(AcDb::DuplicateRecordCloning style);

private:
    friend class AcDbObjectAccess;
    using AcDbObject::AcDbObject;
};

/// Old and new id of a copied object.
class AcDbIdPair
{
public:
    AcDbIdPair() = default;
    explicit AcDbIdPair(AcDbObjectId key, AcDbObjectId value = {}, bool cloned = false)
        : key_(key), value_(value), cloned_(cloned)
    {
    }
    AcDbObjectId key() const { return key_; }
    AcDbObjectId value() const { return value_; }
    /// False: the value is an object that was there already.
    bool isCloned() const { return cloned_; }

private:
    AcDbObjectId key_, value_;
    bool cloned_ = false;
};

/// Old to new ids of a copy.
class HOST_API AcDbIdMapping
{
public:
    AcDbIdMapping();
    AcDbIdMapping(const AcDbIdMapping&) = delete;
    AcDbIdMapping& operator=(const AcDbIdMapping&) = delete;
    ~AcDbIdMapping();

    /// Completes the pair by its key; false when there is none.
    bool compute(AcDbIdPair& pair) const;
    bool assign(const AcDbIdPair& pair);
    int count() const;

private:
    struct Pairs;
    std::unique_ptr<Pairs> pairs_;
};

/// Opens an object. Read: up to 256 readers while nobody writes or is notified; write: alone;
/// notify: also beside readers or the writer. The same pointer for all who have it open.
/// eInvalidInput (no such mode), eNullObjectId, eNoDatabase (its drawing is closed), eUnknownHandle
/// (no object has that id), eWasErased, ePermanentlyErased (its making was undone), eAtMaxReaders,
/// eWasOpenForRead, eWasOpenForWrite, eWasNotifying; for write also eLockViolation (the document is
/// not locked for write) and eOnLockedLayer. `object` is null after a failure.
HOST_API Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id,
                                              AcDb::OpenMode mode, bool openErased = false);
/// eNotThatKindOfClass for what is no entity.
HOST_API Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id,
                                              AcDb::OpenMode mode, bool openErased = false);

/// The same for one class: eNotThatKindOfClass for an object of another one, which stays closed.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false)
{
    AcDbObject* any = nullptr;
    object = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(any, id, mode, openErased);
    if (status != Acad::eOk) return status;
    object = T::cast(any);
    if (object != nullptr) return Acad::eOk;
    any->close();
    return Acad::eNotThatKindOfClass;
}
