// SPDX-License-Identifier: LicenseRef-ORVALD
// Whether single values fit their group codes.
#pragma once

#include "audit/report.h"
#include "tag_reader.h"

namespace orvald::dxf {

/// Reports what is wrong with the present group. `utf8`: of a version whose files are UTF-8.
void checkValue(const TagReader& in, bool utf8, Report& report);

} // namespace orvald::dxf
