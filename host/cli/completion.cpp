// SPDX-License-Identifier: LicenseRef-ORVALD
#include "completion.h"

#include "form_scanner.h"
#include "session/session.h"

#include <algorithm>
#include <filesystem>

namespace orvald::cli {
namespace {

namespace fs = std::filesystem;

char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

bool hasUpper(std::string_view text)
{
    return std::ranges::any_of(text, [](char byte) { return byte != lower(byte); });
}

/// `word` begins as `typed` does, whatever the case of ASCII letters.
bool begins(std::string_view word, std::string_view typed)
{
    return word.size() >= typed.size() &&
           std::ranges::equal(word.substr(0, typed.size()), typed, {}, lower, lower);
}

/// Names in upper case, in the case in which the user types.
Completion fromNames(const std::vector<std::string>& names, std::string_view typed)
{
    Completion completion{typed.size(), {}, {}};
    if (typed.empty()) return completion;
    const bool upper = hasUpper(typed);
    for (const std::string& name : names) {
        if (!begins(name, typed)) continue;
        std::string& word = completion.words.emplace_back(name);
        if (!upper) std::ranges::transform(word, word.begin(), lower);
    }
    return completion;
}

Completion fromFiles(std::string_view typed)
{
    const std::size_t slash = typed.rfind('/');
    const std::string_view folder =
        slash == typed.npos ? std::string_view() : typed.substr(0, slash + 1);
    const std::string_view begin = typed.substr(folder.size());
    Completion completion{begin.size(), {}, {}};
    std::error_code error;
    const fs::path where = folder.empty() ? fs::path(".") : fs::path(folder);
    for (fs::directory_iterator entry(where, error), end; !error && entry != end;
         entry.increment(error)) {
        std::string name = entry->path().filename().string();
        const bool hidden = name.starts_with('.') && !begin.starts_with('.');
        if (hidden || !name.starts_with(begin)) continue;
        std::error_code ignored;
        if (entry->is_directory(ignored)) name += '/';
        completion.words.push_back(std::move(name));
    }
    std::ranges::sort(completion.words);
    return completion;
}

/// The code in front of a string is a call of getvar or setvar.
bool asksForVariable(std::string_view code)
{
    while (code.ends_with(' ')) code.remove_suffix(1);
    const std::size_t open = code.rfind('(');
    if (open == code.npos) return false;
    const std::string_view function = code.substr(open + 1);
    return function.size() == 6 && (begins(function, "getvar") || begins(function, "setvar"));
}

std::string_view lastToken(std::string_view code)
{
    std::size_t begin = code.size();
    while (begin > 0 && !endsToken(code[begin - 1])) --begin;
    return code.substr(begin);
}

Completion forConsoleCommand(Session& session, std::string_view text)
{
    const std::size_t space = text.find(' ');
    if (space == text.npos) {
        Completion completion{text.size(), {}, " "};
        for (const std::string_view command : kConsoleCommands) {
            if (command.starts_with(text)) completion.words.emplace_back(command);
        }
        return completion;
    }
    const std::string_view rest = text.substr(text.find_last_of(' ') + 1);
    if (text.starts_with(",draw ")) return fromFiles(rest);
    if (!text.starts_with(",doc ")) return complete(session, text.substr(space + 1));
    std::vector<std::string> names = session.symbols();
    const std::vector<std::string> variables = session.variables();
    names.insert(names.end(), variables.begin(), variables.end());
    std::ranges::sort(names);
    const auto doubles = std::ranges::unique(names);
    names.erase(doubles.begin(), doubles.end());
    return fromNames(names, rest);
}

} // namespace

Completion complete(Session& session, std::string_view text)
{
    if (text.starts_with(',')) return forConsoleCommand(session, text);
    LexicalPlace place;
    std::size_t stringAt = 0; // behind the quote of the string that one is in
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool wasInString = place.inString();
        place.step(text[i]);
        if (place.inString() && !wasInString) stringAt = i + 1;
    }
    if (place.inComment()) return {};
    if (!place.inString()) return fromNames(session.symbols(), lastToken(text));
    const std::string_view typed = text.substr(stringAt);
    const bool variable = asksForVariable(text.substr(0, stringAt - 1));
    Completion completion = variable ? fromNames(session.variables(), typed) : fromFiles(typed);
    completion.end = "\"";
    return completion;
}

} // namespace orvald::cli
