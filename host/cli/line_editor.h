// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines of a user at a terminal. Text is UTF-8.
#pragma once

#include "completion.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvald::cli {

class LineEditor
{
public:
    enum class Got
    {
        line,
        dropped, // Ctrl-C
        end      // Ctrl-D, or the terminal is gone
    };
    virtual ~LineEditor() = default;
    virtual Got read(const std::string& prompt, std::string& line) = 0;
    /// Adds an entry, without line ends, to what the arrow keys bring back.
    virtual void remember(const std::string& entry) = 0;
};

/// Completes the end of a line that is being typed.
using Completer = std::function<Completion(std::string_view line)>;

/// An editor with history and completion; null where the program was built without one.
std::unique_ptr<LineEditor> makeLineEditor(Completer completer);

} // namespace orvald::cli
