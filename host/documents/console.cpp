// SPDX-License-Identifier: LicenseRef-ORVALD
// stdout and stderr stay in step: what was printed is handed over before a message is written.
#include "console.h"

#include "lisp/world.h"

#include <cstdio>
#include <unistd.h>

namespace orvald {
namespace {

/// The text of a box on the console: its lines behind a mark.
std::string boxLines(std::string_view mark, std::u16string_view text)
{
    const std::string plain = lisp::toUtf8(text);
    std::string lines = std::string(mark) + ": ";
    std::size_t end = plain.size();
    while (end > 0 && plain[end - 1] == '\n') --end;
    for (const char unit : std::string_view(plain).substr(0, end)) {
        lines += unit;
        if (unit == '\n') lines.append(mark.size() + 2, ' ');
    }
    return lines;
}

} // namespace

Console::Console() : meter_(STDERR_FILENO) {}

void Console::writeLine(std::string_view line)
{
    meter_.stepAside();
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fputc('\n', stderr);
}

void Console::print(std::u16string_view text)
{
    if (text.empty()) return;
    meter_.stepAside();
    const std::string bytes = lisp::toUtf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    atLineStart_ = bytes.back() == '\n';
}

void Console::message(std::string_view line)
{
    if (level_ != Level::quiet) writeLine(line);
}

void Console::warning(std::string_view line) { writeLine(line); }

void Console::prompt(std::u16string_view text)
{
    meter_.stepAside();
    std::fflush(stdout);
    const std::string bytes = lisp::toUtf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stderr);
}

void Console::failure(std::string_view application, std::u16string_view text)
{
    failure_ = text;
    writeLine("Application " + std::string(application) + " ERROR: " + lisp::toUtf8(text));
}

void Console::alert(std::u16string_view text)
{
    ++alerts_;
    writeLine(boxLines("ALERT", text));
}

bool Console::askOkCancel(std::u16string_view caption, std::u16string_view text)
{
    std::u16string whole(caption);
    if (!whole.empty()) whole += u'\n';
    whole += text;
    writeLine(boxLines("QUESTION", whole));
    writeLine(boxAnswer_ ? "ANSWER: OK" : "ANSWER: Cancel");
    return boxAnswer_;
}

void Console::finish()
{
    if (!atLineStart_) std::fputc('\n', stdout);
    atLineStart_ = true;
    flush();
}

void Console::flush() { std::fflush(stdout); }

} // namespace orvald
