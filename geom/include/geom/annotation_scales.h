// SPDX-License-Identifier: LicenseRef-ORVALD
// The annotation scales of entities: which of the drawing's scales an entity has a look for.
#pragma once

#include "kex/array.h"
#include "kex/ename.h"
#include "kex/string.h"

namespace KEX {

/// Names of the entity's scales in the order of the drawing's scale list; empty when it is not
/// annotative or cannot be opened.
CKexArrayTempl<CKexString> annotationScales(const CAdsName& entity);

/// Gives the entity exactly these scales, named without regard to case. A name that the drawing
/// does not have but that reads "a:b", two positive numbers, is added to its list: a paper units
/// stand for b drawing units. Other unknown names are passed over. No names: the entity is not
/// annotative any more. False, and nothing has changed, when it cannot be opened for write, is of a
/// kind that cannot be annotative, or none of the names is a scale.
bool setAnnotationScales(const CAdsName& entity, const CKexArrayTempl<CKexString>& names);

} // namespace KEX
