// SPDX-License-Identifier: LicenseRef-ORVALD
// What programs put into xrecords, dictionaries and extended data, as result buffers and as groups.
#pragma once

#include "drawing/drawing.h"
#include "drawing/entity_functions.h"
#include "hostapi/resbuf.h"

namespace orvald::drawing {

// Xrecords. In a record the marker and the cloning flag stand in front of what programs see.

/// A record with no groups of its own; what is there already in a copy stays (flag 1).
Record newXrecord();
/// True for groups that programs may put into xrecords: 1 to 369 with a value of their own, so
/// neither 5, 100 and 105 nor the y and z of points.
bool isXrecordCode(int code);
/// The groups of a chain. eInvalidDxfCode; eInvalidInput for a value that cannot be kept;
/// eWrongDatabase for a name of another drawing.
Acad::ErrorStatus xrecordGroups(const Drawing& drawing, const resbuf* chain, TagList& groups);
void setXrecordGroups(Record& record, const TagList& groups);
/// Null for an empty record. The caller frees it.
resbuf* xrecordChain(const Drawing& drawing, const Record& record);
/// Numbers as AcDb::DuplicateRecordCloning.
int xrecordCloning(const Record& record);
void setXrecordCloning(Record& record, int cloning);

// Dictionaries.

inline constexpr int kHardOwnerGroup = 280;
inline constexpr int kDictionaryCloningGroup = 281;
Record newDictionary(bool hardOwner);
/// Makes the dictionary a hard or soft owner of all its entries.
void setHardOwner(Record& record, bool hard);
void setDictionaryCloning(Record& record, int cloning);

// Extended data.

/// All of it, or one application's from its 1001 on; null when there is none. The caller
/// frees it.
resbuf* xdataChain(const Drawing& drawing, const TagList& xdata, std::u16string_view application);
/// Puts the blocks of a chain in the place of the blocks of the same applications. none, badXdata
/// (also for null), noApp, xdataTooBig; `xdata` is changed in any case.
ErrNo mergeXdataChain(const Drawing& drawing, const resbuf* chain, TagList& xdata);

} // namespace orvald::drawing
