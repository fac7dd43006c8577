// SPDX-License-Identifier: LicenseRef-ORVALD
#include "input_rules.h"

#include "registries.h"
#include "text/letters.h"

#include <algorithm>

namespace orvald {
namespace {

bool isLower(char16_t unit) { return unit >= u'a' && unit <= u'z'; }
bool isUpper(char16_t unit) { return unit >= u'A' && unit <= u'Z'; }

} // namespace

Keywords::Keywords(std::u16string_view list)
{
    bool global = false;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(u' '), list.size());
        const std::u16string_view token = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        if (token.empty()) continue;
        if (token == u"_") global = true;
        else (global ? globals_ : words_).push_back(parse(token));
    }
}

Keywords::Word Keywords::parse(std::u16string_view token)
{
    const std::size_t comma = token.find(u',');
    if (comma != std::u16string_view::npos) {
        return {std::u16string(token.substr(0, comma)), text::upperText(token.substr(comma + 1))};
    }
    // The capitals, with the digits and signs among them, up to the next small letter.
    const auto first = std::ranges::find_if(token, isUpper);
    if (first == token.end()) return {std::u16string(token), text::upperText(token)};
    const auto last = std::find_if(first, token.end(), isLower);
    const auto begin = std::none_of(token.begin(), first, isLower) ? token.begin() : first;
    return {std::u16string(token), text::upperText(std::u16string_view(begin, last))};
}

bool Keywords::fits(const Word& word, std::u16string_view typed)
{
    // Typed from the word's start or from its capitals on, with all that is required.
    const std::u16string whole = text::upperText(word.text);
    const std::size_t start = whole.find(word.required);
    if (start == std::u16string::npos) return typed == word.required || typed == whole;
    const auto continues = [&](std::size_t from) {
        return typed.size() >= start + word.required.size() - from &&
               std::u16string_view(whole).substr(from).starts_with(typed);
    };
    return continues(0) || continues(start);
}

std::optional<std::u16string> Keywords::match(std::u16string_view typed) const
{
    if (typed.empty()) return std::nullopt;
    const std::u16string text = text::upperText(typed);
    const auto find = [](const std::vector<Word>& words, std::u16string_view wanted) {
        return std::ranges::find_if(words, [&](const Word& word) { return fits(word, wanted); }) -
               words.begin();
    };
    const auto answer = [&](std::ptrdiff_t place) {
        const auto at = static_cast<std::size_t>(place);
        return at < globals_.size() ? globals_[at].text : words_[at].text;
    };
    if (const auto place = find(words_, text); place != std::ssize(words_)) return answer(place);
    if (!text.starts_with(u'_')) return std::nullopt;
    const std::u16string_view bare = std::u16string_view(text).substr(1);
    if (bare.empty()) return std::nullopt;
    const std::vector<Word>& programs = globals_.empty() ? words_ : globals_;
    const auto place = find(programs, bare);
    if (place == std::ssize(programs)) return std::nullopt;
    return programs[static_cast<std::size_t>(place)].text;
}

} // namespace orvald
