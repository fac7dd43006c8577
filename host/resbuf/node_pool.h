// SPDX-License-Identifier: LicenseRef-ORVALD
// Memory of result buffers. Nodes and short strings come from free lists, because every LISP call
// into an application makes and frees a few of them. Used from the LISP thread only.
#pragma once

#include "hostapi/resbuf.h"

#include <cstddef>

namespace orvald {

/// A zeroed node, null when memory is out.
resbuf* takeNode();
void giveNode(resbuf* node);

/// Room for `units` units and an end mark; null when memory is out.
ACHAR* takeString(std::size_t units);
void giveString(ACHAR* text);

} // namespace orvald
