// SPDX-License-Identifier: LicenseRef-ORVALD
// Text values that are not plain ASCII.
#include "text_in.h"

#include "drawing/text.h"

#include <cstdint>
#include <cstring>

namespace orvald::dxf {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isControl(char c) { return static_cast<std::uint8_t>(c) < 0x20 && c != '\t'; }

/// True when the value is plain ASCII without control characters (a tab may stand in text): then it
/// is in file form already.
bool isPlainAscii(std::string_view value)
{
    const char* at = value.data();
    const char* end = at + value.size();
    // Eight bytes at a time: none above 0x7F and none below 0x20.
    for (; end - at >= 8; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, at, 8);
        const std::uint64_t low = word - 0x2020202020202020u;
        if (((word | low) & 0x8080808080808080u) != 0) break;
    }
    for (; at != end; ++at) {
        const auto byte = static_cast<std::uint8_t>(*at);
        if (byte >= 0x80 || isControl(*at)) return false;
    }
    return true;
}

/// True when a \U+ or \M+ form may stand in it.
bool mayHaveForms(std::string_view value)
{
    for (std::size_t at = value.find('\\'); at != value.npos; at = value.find('\\', at + 1))
        if (at + 2 < value.size() && value[at + 2] == '+') return true;
    return false;
}

/// The value in UTF-8 with the forms of text that it has; false when it stands so already.
bool toUtf8(std::string_view value, const text::CodePage* page, std::string& scratch, bool& foreign)
{
    if (isPlainAscii(value)) return false;
    scratch.clear();
    for (std::size_t at = 0; at < value.size();) {
        const auto byte = static_cast<std::uint8_t>(value[at]);
        if (isControl(value[at])) {
            scratch += '^';
            scratch += static_cast<char>(byte + 0x40);
            ++at;
            continue;
        }
        if (byte == '^' && at + 1 < value.size()) {
            const char next = value[at + 1];
            const bool form = next == ' ' || (next >= '@' && next <= '_');
            // A caret of its own must not take the ^ form of a control character behind it.
            if (form) scratch += value.substr(at, 2);
            else scratch += isControl(next) ? "^ " : "^";
            at += form ? 2 : 1;
            continue;
        }
        if (byte < 0x80) {
            scratch += value[at++];
            continue;
        }
        const std::size_t start = at;
        const char32_t code =
            page == nullptr ? text::decodeUtf8(value, at) : page->decode(value, at);
        const std::string_view character = value.substr(start, at - start);
        if (page != nullptr) {
            foreign = foreign || code == kReplacement;
            text::appendUtf8(scratch, code);
        } else if (character.size() == 1) {
            foreign = true;
            text::appendUtf8(scratch, text::ansiUnit(byte));
        } else if (text::isSurrogate(code)) { // a careless writer has put it into UTF-8 by itself
            scratch += drawing::fileForm(character);
        } else {
            scratch += character;
        }
    }
    return true;
}

} // namespace

std::string_view readText(std::string_view value, const text::CodePage* page, std::string& scratch,
                          bool& foreign)
{
    if (toUtf8(value, page, scratch, foreign)) value = scratch;
    if (page != nullptr && mayHaveForms(value)) {
        scratch = drawing::fileForm(drawing::text8(value));
        return scratch;
    }
    return value;
}

const text::CodePage* pageOf(std::string_view version, std::string_view name, bool& known)
{
    constexpr std::string_view firstUtf8 = "AC1021";
    known = true;
    if (version.empty() || version >= firstUtf8) return nullptr;
    if (const text::CodePage* page = text::CodePage::named(name)) return page;
    // Old files say "ascii" and mean the code page of their country.
    known = name.empty() || name == "ascii";
    return &text::CodePage::ansi1252();
}

} // namespace orvald::dxf
