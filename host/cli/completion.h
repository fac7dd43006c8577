// SPDX-License-Identifier: LicenseRef-ORVALD
// What may stand where the user is typing: symbols in code, system variables and files in strings,
// the console's own commands.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvald {
class Session;
}

namespace orvald::cli {

struct Completion
{
    std::size_t typed = 0;          // bytes of the word that are there
    std::vector<std::string> words; // whole words that begin so, in order; folders end in "/"
    std::string_view end;           // follows the word when there is only one, behind a folder not
};

/// The console's own commands, with their comma.
inline constexpr std::string_view kConsoleCommands[] = {",bt",   ",doc",  ",draw",
                                                        ",help", ",quit", ",time"};

/// For the end of `text`: all that was typed of the form, or of the console command.
Completion complete(Session& session, std::string_view text);

} // namespace orvald::cli
