// SPDX-License-Identifier: LicenseRef-ORVALD
// Test cases written in LISP files. A case is one or more forms, over as many lines as they need,
// closed by what is expected at the end of a line:
//
//     (expression)   ; => value       what prin1 writes of the last form's value
//     (expression)   ; ! message      the error message, or its end
//
// Forms at the end of a file without either must only evaluate. Other comments explain.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct LspCase
{
    enum class Expects
    {
        value,
        error,
        nothing
    };
    int line = 0; // where the expectation stands, 1-based
    std::string text;
    Expects expects = Expects::nothing;
    std::string expected;
};

inline std::vector<LspCase> parseLspCases(std::string_view text)
{
    std::vector<LspCase> cases;
    std::string pending;
    bool inString = false;
    bool inBlock = false; // ;| comment |;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++number;

        std::size_t comment = line.size();
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (inBlock) {
                inBlock = line.substr(i, 2) != "|;";
                i += !inBlock;
            } else if (line[i] == '\\') {
                ++i;
            } else if (line[i] == '"') {
                inString = !inString;
            } else if (!inString && line.substr(i, 2) == ";|") {
                inBlock = true;
                ++i;
            } else if (!inString && line[i] == ';') {
                comment = i;
                break;
            }
        }
        pending += line.substr(0, comment);
        pending += '\n'; // also for a comment: the lines of the forms stay as they are
        const std::string_view note = line.substr(comment);
        LspCase::Expects expects = LspCase::Expects::nothing;
        if (note.starts_with("; => ")) expects = LspCase::Expects::value;
        if (note.starts_with("; ! ")) expects = LspCase::Expects::error;
        if (expects == LspCase::Expects::nothing) continue;
        std::string_view expected = note.substr(note.find_first_of(">!") + 2);
        expected = expected.substr(0, expected.find_last_not_of(" \r") + 1);
        cases.push_back({number, pending, expects, std::string(expected)});
        pending.clear();
    }
    if (pending.find_first_not_of(" \n\r\t") != std::string::npos) {
        cases.push_back({number, pending, LspCase::Expects::nothing, {}});
    }
    return cases;
}
