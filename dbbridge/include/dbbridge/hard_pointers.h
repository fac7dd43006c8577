// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of hard pointers: named xrecords in an object's extension dictionary that hold one group
// 340 for each target, in the order of adding, none twice. The name of the kernel's own data
// xrecord is refused in any case of letters. An owner that is written to is open for write.
#pragma once

#include "hostapi/arxapp.h"
#include "hostapi/objects.h"

namespace KEX {

/// False for the kernel's own name, a null one, and "".
bool isHardPointerName(const ACHAR* name);

/// Appends a target that is not in the list yet. False for a null target, one that cannot be opened
/// (an erased one among them) and one of another drawing.
ACRX_EXPORT bool addHardPointer(AcDbObject* owner, const ACHAR* name, AcDbObjectId target);
/// Replaces the list by those targets that can be opened, once each; by an empty one when there are
/// none. False when it cannot be written.
ACRX_EXPORT bool setHardPointer(AcDbObject* owner, const ACHAR* name,
                                const AcArray<AcDbObjectId>& targets);
/// Replaces the list by one target, which is not looked at. False for a null one.
ACRX_EXPORT bool setHardPointer(AcDbObject* owner, const ACHAR* name, AcDbObjectId target);
/// Takes a target out; true also when it is not in the list, false for a null one.
ACRX_EXPORT bool removeHardPointer(AcDbObject* owner, const ACHAR* name, AcDbObjectId target);
/// The targets that are not erased; those that are stay in the list. False when there are none.
ACRX_EXPORT bool getHardPointer(const AcDbObject* owner, const ACHAR* name,
                                AcArray<AcDbObjectId>& targets);
/// Takes all lists of an object away, which is open for write. An xrecord counts as one when it
/// holds hard pointers and nothing else; an empty one stays, it may be anybody's. False when there
/// is none.
bool removeHardPointerLists(AcDbObject& owner);

} // namespace KEX
