// SPDX-License-Identifier: LicenseRef-ORVALD
#include "form_scanner.h"

#include <utility>

namespace orvald::cli {
namespace {

bool isSpace(char byte) { return static_cast<unsigned char>(byte) <= ' '; }

} // namespace

bool endsToken(char byte)
{
    return isSpace(byte) || std::string_view("()'\";").find(byte) != std::string_view::npos;
}

void LexicalPlace::step(char byte)
{
    const char before = std::exchange(before_, byte);
    switch (in_) {
    case In::code:
        if (byte == '"') in_ = In::string;
        if (byte == ';') in_ = In::lineComment;
        break;
    case In::string:
        if (byte == '\\') in_ = In::escape;
        if (byte == '"') in_ = In::code;
        break;
    case In::escape: in_ = In::string; break;
    case In::lineComment:
        if (byte == '\n') in_ = In::code;
        if (byte == '|' && before == ';') {
            in_ = In::blockComment;
            before_ = 0; // ";|;" does not end it
        }
        break;
    case In::blockComment:
        if (byte == ';' && before == '|') {
            in_ = In::code;
            before_ = 0;
        }
        break;
    }
}

void FormScanner::add(std::string_view line, int number)
{
    number_ = number;
    for (const char byte : line) take(byte);
    take('\n');
}

void FormScanner::take(char byte)
{
    const bool wasInString = place_.inString(), wasInComment = place_.inComment();
    place_.step(byte);
    if (wasInString) {
        open_.text += byte;
        if (!place_.inString() && depth_ == 0) finish();
        return;
    }
    if (inToken_ && (wasInComment || endsToken(byte))) {
        inToken_ = false;
        if (depth_ == 0) finish();
    }
    const bool isBlank = wasInComment || place_.inComment() || isSpace(byte);
    if (isBlank) {
        if (isOpen()) open_.text += byte;
        return;
    }
    if (!isOpen()) open_.line = number_;
    open_.text += byte;
    switch (byte) {
    case '(': ++depth_; break;
    case ')':
        if (depth_ > 0) --depth_;
        if (depth_ == 0) finish();
        break;
    case '\'':
    case '"': break;
    default: inToken_ = true; break;
    }
}

void FormScanner::finish() { forms_.push_back(std::exchange(open_, {})); }

std::optional<FormScanner::Form> FormScanner::take()
{
    if (forms_.empty()) return std::nullopt;
    Form form = std::move(forms_.front());
    forms_.pop_front();
    return form;
}

void FormScanner::drop() { *this = FormScanner(); }

std::string onOneLine(std::string_view form)
{
    LexicalPlace place;
    std::string line;
    for (const char byte : form) {
        const bool wasInComment = place.inComment(), inString = place.inString();
        const bool begins = !wasInComment && byte == ';' && !inString;
        place.step(byte);
        if (inString && byte == '\n') {
            line += "\\n";
        } else if (inString) {
            line += byte;
        } else if (begins || wasInComment || isSpace(byte)) {
            const bool separates = !line.empty() && line.back() != ' ' && line.back() != '(';
            if (separates) line += ' ';
        } else {
            if (byte == ')' && line.ends_with(' ')) line.pop_back();
            line += byte;
        }
    }
    while (line.ends_with(' ')) line.pop_back();
    return line;
}

} // namespace orvald::cli
