// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP values as result buffers and back: the one place that knows in which form lists, points and
// dotted pairs cross between AutoLISP and an application.
#pragma once

#include "hostapi/resbuf.h"
#include "lisp/world.h"

#include <memory>
#include <optional>

namespace orvald {

/// How integers and dotted pairs go to applications; both forms are in use, applications take both.
struct ChainForm
{
    bool dotInMiddle = false;  // RTLB a RTDOTE b RTLE; else RTLB a b RTDOTE
    bool longIntegers = false; // RTLONG for every integer; else RTSHORT where it fits
};

struct ChainDeleter
{
    void operator()(resbuf* chain) const;
};
/// Owns a chain.
using Chain = std::unique_ptr<resbuf, ChainDeleter>;

/// Chain of the arguments, null for none. A list of exactly two or three reals is a point node.
/// Raises a LISP error for a value that cannot be passed (a symbol other than T, a file, a
/// function).
resbuf* chainFromArguments(lisp::World& world, lisp::Args args, ChainForm form);
/// Chain of one value; null and no error when it cannot be passed.
resbuf* chainFromValue(lisp::Value value, lisp::World& world, ChainForm form);

/// A value that names a selection set of the host and keeps it.
lisp::Value picksetValue(lisp::World& world, std::int32_t set);

/// Value of one node that is no list mark; nothing when it has none.
std::optional<lisp::Value> valueFromNode(lisp::World& world, const resbuf& node);
/// A chain as one list: wrapped unless it is one RTLB..RTLE pair from its first to its last node. A
/// node with a DXF code becomes (code . value). Nothing when its marks do not balance.
std::optional<lisp::Value> listFromChain(lisp::World& world, const resbuf* chain);

/// The two words of a name and the 48 bits of a LISP entity value.
std::uint64_t entityFromName(const std::int32_t* name);
void nameFromEntity(std::uint64_t entity, std::int32_t* name);

} // namespace orvald
