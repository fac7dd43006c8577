// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups of entities as AutoLISP has them, and as result buffers: ((0 . "LINE") (10 1.0 2.0 0.0)
// ... (-3 ("APP" (1000 . "text")))).
#pragma once

#include "drawing/entity_functions.h"
#include "lisp/world.h"
#include "value_chain.h"

namespace orvald {

class Document;

/// The list of a chain; plane points, marked by the drawing, have two coordinates.
lisp::Value listFromGroups(lisp::World& world, const resbuf* chain);

/// The chain of a list of groups. Numbers are brought to the type of their group; nil among the
/// groups is passed over. Raises "bad DXF group: ..." for a value that cannot stand under its code.
Chain groupsFromList(lisp::World& world, lisp::Value list);

/// A chain of RTSTR nodes from a list of strings; null for nil.
Chain stringsFromList(lisp::World& world, lisp::Value list);

/// Sets ERRNO in the document of `world` when `error` is one; true when it is none.
bool succeeded(lisp::World& world, drawing::ErrNo error);

/// (x y z).
inline lisp::Value pointValue(lisp::World& world, drawing::Point point)
{
    using lisp::Value;
    return world.makeList({Value::real(point.x), Value::real(point.y), Value::real(point.z)});
}

/// The value of an object, nil for none.
inline lisp::Value nameValue(drawing::ObjectId id)
{
    return id.isNull() ? lisp::Value::nil() : lisp::Value::entity(id.value);
}

} // namespace orvald
