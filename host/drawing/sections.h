// SPDX-License-Identifier: LicenseRef-ORVALD
// The parts of a record between its subclass markers, each with the rule that its schema has for
// it.
#pragma once

#include "drawing/record.h"
#include "schema.h"

#include <vector>

namespace orvald::drawing {

struct SectionRange
{
    TagList::Iterator marker;          // counts when hasMarker
    TagList::Iterator begin, end;      // the groups behind the marker
    const SectionRule* rule = nullptr; // null: no schema, or a marker that it does not know
    bool hasMarker = false;
};

/// Sections of a record in order; what stands in front of the first marker is one as well.
std::vector<SectionRange> sectionsOf(const Record& record, const Schema* schema);

/// Puts one group into its place of a record by the schema; false when the schema does not know it.
bool insertBySchema(Record& record, const Schema& schema, const TagList& group);

/// Lets an entity or a part say in which space it stands, as files want it.
void markSpace(Record& entity, bool paper);

} // namespace orvald::drawing
