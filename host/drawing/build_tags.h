// SPDX-License-Identifier: LicenseRef-ORVALD
// The groups of a new record out of the groups of a list.
#pragma once

#include "schema.h"

namespace orvald::drawing {

/// Puts the groups that a program gave into the order of files, adds markers and what files must
/// have. Groups that the kind's schema does not know are left out. False when a required group or
/// marker is missing.
bool buildTags(Kind kind, bool isEntity, const TagList& groups, TagList& tags);

} // namespace orvald::drawing
