// SPDX-License-Identifier: LicenseRef-ORVALD
// What a program gives to make or change a record: its chain, sorted into parts and checked for
// what holds for every kind.
#pragma once

#include "drawing/drawing.h"
#include "drawing/entity_functions.h"
#include "schema.h"

namespace orvald::drawing {

struct Given
{
    ObjectId name;            // group -1, null when absent
    std::string type;         // group 0
    bool typeInFront = false; // group 0 is the first or second one
    TagList groups;           // all others in order, without handles, owner and braces
    TagList xdata;
    bool hasXdata = false;
    Handle handle = 0; // group 5

    bool paper = false;    // group 67
    bool hasSpace = false; // 67 or 410 was given
    std::string layout;    // group 410 in file form
};

/// Sorts a chain. none, badType (a value that cannot be stored), badXdata.
ErrNo readGiven(const Drawing& drawing, const resbuf* chain, Given& given);

/// Extended data as the database takes it: each block opened by a registered application, once,
/// braces balanced, not too much. none, noApp, badXdata, xdataTooBig.
ErrNo checkXdata(const Drawing& drawing, const TagList& xdata);
/// Replaces the blocks of the applications that `given` names; an application alone removes its
/// block.
void mergeXdata(TagList& xdata, const TagList& given);

/// Checks the properties that all entities share and the names that they use. none, badLayer,
/// badLinetype, badColour, badStyle, badNormal, badValue, badType (a block that does not exist).
ErrNo checkRecord(const Drawing& drawing, const Record& record);

/// Text of an MTEXT: its groups 3 and 1 joined.
std::u16string mtextOf(const TagList& tags);
/// The text as groups 3 and 1, in pieces that every reader takes.
void addMtextPieces(TagList& tags, std::u16string_view text);
/// Vertices of an LWPOLYLINE as files have them: 10, then 40 and 41 unless they are `width`, 42
/// and 91 unless 0. Reads from `from` on; other groups are left out.
void addVertices(TagList& tags, const TagList& from, double width);

} // namespace orvald::drawing
