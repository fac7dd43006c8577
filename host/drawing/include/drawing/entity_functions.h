// SPDX-License-Identifier: LicenseRef-ORVALD
// What programs do with a drawing by lists: entget, entmod, entmake, entnext, tables, dictionaries.
// Values come and go as result buffers with group codes: angles of groups 50 to 58 in radians, one
// point a node, references as names. The state between calls (a complex entity that is being
// gathered, table walks) lives here, one object a document.
#pragma once

#include "drawing/drawing.h"
#include "hostapi/resbuf.h"

#include <memory>
#include <string>
#include <string_view>

namespace orvald::drawing {

/// Values of the variable ERRNO that these functions answer; none is success.
enum class ErrNo : std::int16_t
{
    none = 0,
    badTable = 1,
    badName = 2,    // no object, or one of another drawing
    badHandle = 13, // no handle, or nobody's
    deleted = 17,   // the object is erased
    badValue = 22,  // out of range, or taken already
    typeChange = 24,
    badLayer = 25,
    badLinetype = 26,
    badColour = 27,
    badStyle = 28,
    modDeleted = 31, // change of an erased object
    handleChange = 33,
    lockedLayer = 35,
    badType = 36, // unknown or unfit entity type, or groups that do not make an entity
    badNormal = 42,
    badXdata = 48,
    noApp = 50, // extended data of an application that is not registered
    xdataTooBig = 51
};

/// The z of a plane point (a vertex of an LWPOLYLINE) where a list asks to tell them apart.
bool isPlanarMark(double z);

struct PendingEntity;

class EntityFunctions
{
public:
    explicit EntityFunctions(Drawing& drawing);
    ~EntityFunctions();
    EntityFunctions(const EntityFunctions&) = delete;
    EntityFunctions& operator=(const EntityFunctions&) = delete;

    Drawing& drawing() { return drawing_; }

    /// Groups of an object, -1 first, then 0, [102 groups], 330, 5, 100 ...; missing groups with a
    /// default are told with it. `apps` (RTSTR nodes, patterns) adds the extended data as -3,
    /// 1001 ... With `markPlanar` the z of plane points satisfies isPlanarMark, else it is 0.0.
    /// badName, deleted. The caller frees the chain.
    ErrNo entGet(ObjectId id, const resbuf* apps, resbuf*& chain, bool markPlanar = false) const;

    /// Changes the object named by group -1 to the values given; groups that are not given stay.
    /// Xrecords and dictionaries stay as they are, without failure. Nothing has changed after a
    /// failure: badName, modDeleted, lockedLayer, typeChange, handleChange, badType (a value that
    /// cannot be stored), and what is wrong with the new values.
    ErrNo entMod(const resbuf* chain);

    /// What entMake has made.
    struct Made
    {
        ObjectId id;           // null while a complex entity is being gathered
        std::string blockName; // after ENDBLK, in file form
    };
    /// Makes an entity or table record, or takes the next part of a complex one (POLYLINE, VERTEX,
    /// SEQEND; INSERT with 66, ATTRIB, SEQEND; BLOCK, entities, ENDBLK): nothing of it is in the
    /// drawing before its end mark. Null cancels what has been begun. DICTIONARY and XRECORD come
    /// without owner. Missing properties are the current ones; a missing layer is made. badType
    /// for all that does not make an entity (noApp and the like for its extended data); a complex
    /// one is dropped whole then.
    ErrNo entMake(const resbuf* chain, Made& made);

    /// Erases a main entity or an object, or restores an erased one. badName; lockedLayer; badType
    /// for parts, for required table records and the root dictionary.
    ErrNo entDel(ObjectId id);
    /// The entity behind `id` (null: the first one), parts included, then the active sheet; within
    /// a block from its BLOCK to its last entity. Null id at the end. badName.
    ErrNo entNext(ObjectId id, ObjectId& next) const;
    /// The last main entity, null when there is none.
    ObjectId entLast() const;
    /// badHandle when the text is no handle or nobody has it. Erased objects are found.
    ErrNo handEnt(std::u16string_view handle, ObjectId& id) const;

    /// Registers an application; false when it is registered already or the name is none.
    bool regApp(std::u16string_view name);

    /// Groups of a table record as old lists have them: 0, 2, 70 ... without names and markers; a
    /// BLOCK with -2, its first entity. `setNext`: tblNext goes on behind it. badTable; badName.
    ErrNo tblSearch(std::u16string_view table, std::u16string_view name, bool setNext,
                    resbuf*& chain);
    /// The next record of a table, the first one with `rewind`; null chain at the end. badTable.
    ErrNo tblNext(std::u16string_view table, bool rewind, resbuf*& chain);
    /// Id of a table record; for a block its BLOCK. badTable; badName.
    ErrNo tblObjName(std::u16string_view table, std::u16string_view name, ObjectId& id) const;

    ObjectId namedObjDict() const;
    /// entGet of the object under a key. badName: no dictionary, or no such key.
    ErrNo dictSearch(ObjectId dictionary, std::u16string_view key, bool setNext, resbuf*& chain);
    /// entGet of the next entry in key order, from the first one with `rewind`; null chain at the
    /// end. badName.
    ErrNo dictNext(ObjectId dictionary, bool rewind, resbuf*& chain);
    /// badName: no dictionary or object; badType: an entity; badValue: the key is taken or the
    /// object has an owner.
    ErrNo dictAdd(ObjectId dictionary, std::u16string_view key, ObjectId object);
    /// Takes the entry out and gives its object. badName.
    ErrNo dictRemove(ObjectId dictionary, std::u16string_view key, ObjectId& object);
    /// badName: no dictionary or key; badValue: the new key is taken.
    ErrNo dictRename(ObjectId dictionary, std::u16string_view from, std::u16string_view to);

private:
    struct Walk
    {
        ObjectId dictionary;
        std::string last; // key of the last entry told
        bool done = false;
    };

    Drawing& drawing_;
    std::unique_ptr<PendingEntity> pending_;           // a complex entity that is being gathered
    std::array<std::size_t, kTableCount> tableNext_{}; // next place of each table walk
    Walk dictionaryWalk_;
};

} // namespace orvald::drawing
