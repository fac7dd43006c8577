// SPDX-License-Identifier: LicenseRef-ORVALD
// Copying records with what they own, and putting other handles into references.
#pragma once

#include "drawing/drawing.h"

#include <functional>

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

/// Replaces every translated reference of a record (groups, reactors, extension dictionary,
/// dictionary entries, extended data; not its owner) by what `translate` gives for it.
void translateReferences(Record& record, const std::function<Handle(Handle, Reference)>& translate);

/// Copies an object of `from` with all that it owns (parts, extension dictionary, dictionary
/// entries; the contents of a block) into `to`, which may be the same drawing, and hangs it
/// nowhere. References to what was copied name the copies; others stay within one drawing; between
/// drawings `map` is asked first, what it does not know becomes 0. `map` holds old to new handles
/// and grows. Gives the place of the copy.
Index deepCopy(const Drawing& from, Index object, Drawing& to,
               std::unordered_map<Handle, Handle>& map);

} // namespace orvald::drawing
