// SPDX-License-Identifier: LicenseRef-ORVALD
#include "input_source.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace orvald {

void InputSource::setAnswers(std::vector<std::string> lines)
{
    answers_ = std::move(lines);
    next_ = 0;
    fromList_ = true;
}

bool InputSource::showsItself() const { return !fromList_ && isatty(STDIN_FILENO) == 1; }

std::optional<std::string> InputSource::nextLine()
{
    std::string line;
    if (fromList_) {
        if (next_ == answers_.size()) return std::nullopt;
        line = answers_[next_++];
    } else if (!std::getline(std::cin, line)) {
        std::cin.clear(); // a signal, or Ctrl-D on a terminal: the next prompt reads again
        std::clearerr(stdin);
        return std::nullopt;
    }
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

} // namespace orvald
