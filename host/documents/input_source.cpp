// SPDX-License-Identifier: LicenseRef-ORVALD
#include "input_source.h"

#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace orvald {
namespace {

int linesTyped = 0;

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
    if (!std::getline(std::cin, line)) {
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
