// SPDX-License-Identifier: LicenseRef-ORVALD
// Copies of objects with what they own, within a drawing and from one to another.
#pragma once

#include "drawing/drawing.h"

#include <span>

namespace orvald::drawing {

/// What a group's reference means for copying.
enum class Reference : std::uint8_t
{
    none,
    softPointer, // 330, 1005
    hardPointer, // 340, 390, 480
    softOwner,   // 350
    hardOwner    // 360
};
/// Reference::none also for 320 to 329, which are never translated.
Reference referenceOf(int code);

/// What becomes of a name that is taken where a copy goes; the numbers are those of files and of
/// AcDb::DuplicateRecordCloning.
enum class Taken : std::uint8_t
{
    asFlagged = 0, // what the copied dictionary or xrecord says, else kept
    kept = 1,      // the one that is there stays and stands for the copy
    replaced = 2,
    mangledWithDrawing = 3, // the copy is called drawing$0$name
    mangled = 4,            // $0$name
    unmangled = 5           // loses such a front; kept where that is taken
};

/// An object and what stands for it where it was copied to.
struct Copied
{
    Index old, made;
    bool cloned; // false: it was there already, or is a dictionary that had to hold others
};

/// True when a copy of the object may hang below `owner`: an entity below a block record that it
/// does not show itself, an object below a dictionary, a table record below its table. Layouts are
/// not copied. `from` may be the drawing of the owner, then table records are not copied either.
bool mayCopyBelow(const Drawing& from, Index object, const Drawing& to, Index owner, Taken taken);

/// Copies objects of a drawing with all that they own, and the blocks of dimensions, below `owner`:
/// entities behind the last one of the block, objects under their old keys, or an anonymous key
/// where that is taken. One that stands below another one of the list is copied with that only.
/// Groups, reactors and extended data that name something copied name the copy; the others, and
/// xrecords that keep their references, name what they named. Everything may be copied where it is
/// said to go by mayCopyBelow.
std::vector<Copied> copyWithin(Drawing& drawing, std::span<const Index> objects, Index owner);

/// Copies objects of one drawing below `owner` of another one, with what they own hard (soft owned
/// ones only when they are in the list as well) and what they point to hard. What they point to
/// goes to its own place: a record into its table, an object below the dictionaries of the same
/// keys, an entity into the space or block of the same name. The same holds for the records that
/// are used by name, and for the classes of custom objects, which stay when the copy is taken back.
/// References to what did not come along become 0.
///
/// `taken` decides about names of listed objects and of table records; for what comes along below
/// dictionaries it is Taken::asFlagged. A dictionary that is kept takes in the entries that it
/// lacks. Layer 0, applications, the fixed linetypes and the spaces are always kept, anonymous
/// names never. `drawingName`: for Taken::mangledWithDrawing.
std::vector<Copied> copyBetween(const Drawing& from, std::span<const Index> objects, Drawing& to,
                                Index owner, Taken taken, std::string_view drawingName);
/// The entries of a dictionary `owner` that such copies would replace.
std::vector<Index> replacedBy(const Drawing& from, std::span<const Index> objects,
                              const Drawing& to, Index owner, Taken taken);

/// Copies an object of another drawing with all that it owns and hangs it nowhere. `known` holds
/// places there and what stands for them here, and grows by the copies. References to others
/// become 0.
Index copyLoose(const Drawing& from, Index object, Drawing& to,
                std::unordered_map<Index, Index>& known);

} // namespace orvald::drawing
