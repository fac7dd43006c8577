// SPDX-License-Identifier: LicenseRef-ORVALD
// Cuts LISP text that comes line by line into forms, without reading them: what stands in strings
// and comments is no parenthesis. Text is UTF-8.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace orvald::cli {

/// Where in a text one is.
class LexicalPlace
{
public:
    enum class In
    {
        code,
        string,
        escape, // behind the backslash in a string
        lineComment,
        blockComment
    };
    /// Goes on by one byte.
    void step(char byte);
    In in() const { return in_; }
    bool inString() const { return in_ == In::string || in_ == In::escape; }
    bool inComment() const { return in_ == In::lineComment || in_ == In::blockComment; }

private:
    In in_ = In::code;
    char before_ = 0; // the byte before, where it may begin or end a comment
};

/// Bytes that end a symbol or number.
bool endsToken(char byte);

class FormScanner
{
public:
    struct Form
    {
        std::string text;
        int line = 0; // on which it begins
    };

    /// The next line, without its end, and the number that forms which begin on it get.
    void add(std::string_view line, int number);
    /// The next whole form; a right parenthesis too many is one by itself.
    std::optional<Form> take();
    /// A form has begun and waits for its end; its text so far and its line.
    bool isOpen() const { return !open_.text.empty(); }
    const Form& open() const { return open_; }
    /// Forgets what is open and what was not taken.
    void drop();

private:
    void take(char byte);
    void finish();

    LexicalPlace place_;
    Form open_;
    int depth_ = 0;
    bool inToken_ = false;
    int number_ = 0; // of the line at hand
    std::deque<Form> forms_;
};

/// The form as one line that means the same, without its comments.
std::string onOneLine(std::string_view form);

} // namespace orvald::cli
