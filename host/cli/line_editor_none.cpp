// SPDX-License-Identifier: LicenseRef-ORVALD
// Built without libedit: the terminal's own line editing is all there is.
#include "line_editor.h"

namespace orvald::cli {

std::unique_ptr<LineEditor> makeLineEditor(Completer) { return nullptr; }

} // namespace orvald::cli
