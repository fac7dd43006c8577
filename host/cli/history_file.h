// SPDX-License-Identifier: LicenseRef-ORVALD
// What was typed at the console, kept from session to session: a text file, one entry a line.
#pragma once

#include <string>
#include <vector>

namespace orvald::cli {

class HistoryFile
{
public:
    /// In `home`; when that is empty in $XDG_STATE_HOME/orvald, else ~/.local/state/orvald.
    explicit HistoryFile(const std::string& home);
    /// The entries, oldest first. A long file is cut to the last of them.
    std::vector<std::string> load() const;
    /// Written at once, so that it is there whatever becomes of the session. A history that cannot
    /// be written is no reason to fail.
    void add(const std::string& entry) const;

private:
    std::string path_; // empty: nowhere
};

} // namespace orvald::cli
