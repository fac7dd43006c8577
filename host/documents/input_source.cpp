// SPDX-License-Identifier: LicenseRef-ORVALD
#include "input_source.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace orvald {
namespace {

int linesTyped = 0;

/// A line of a terminal. What was pasted while a line editor had the terminal ends with the key's
/// own code. Nothing behind the line is taken, for the editor reads on there.
bool readKeys(std::string& line)
{
    std::setvbuf(stdin, nullptr, _IONBF, 0);
    char key = 0;
    while (std::cin.get(key)) {
        if (key == '\n' || key == '\r') return true;
        line += key;
    }
    return !line.empty();
}

} // namespace

void InputSource::setAnswers(std::vector<std::string> lines)
{
    answers_ = std::move(lines);
    next_ = 0;
    fromList_ = true;
}

bool InputSource::showsItself() const { return !fromList_ && isatty(STDIN_FILENO) == 1; }

std::optional<std::string> InputSource::nextLine()
{
    if (!fromList_) return typedLine();
    if (next_ == answers_.size()) return std::nullopt;
    return answers_[next_++];
}

std::optional<std::string> InputSource::typedLine()
{
    std::string line;
    const bool read = isatty(STDIN_FILENO) == 1 ? readKeys(line)
                                                : static_cast<bool>(std::getline(std::cin, line));
    if (!read) {
        std::cin.clear(); // a signal, or Ctrl-D on a terminal: the next prompt reads again
        std::clearerr(stdin);
        return std::nullopt;
    }
    ++linesTyped;
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

int InputSource::typedLines() { return linesTyped; }

} // namespace orvald
