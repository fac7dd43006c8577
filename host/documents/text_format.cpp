// SPDX-License-Identifier: LicenseRef-ORVALD
// Two passes: the format is cut into pieces first, then the arguments are read in their own order,
// because n$ positions may name them in any.
#include "text_format.h"

#include "lisp/world.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace orvald {
namespace {

enum class Sort
{
    none,
    word,
    wide,
    real,
    text,
    pointer
};

struct Argument
{
    Sort sort = Sort::none;
    std::int64_t number = 0;
    double real = 0.0;
    const char16_t* text = nullptr;
    void* pointer = nullptr;
};

constexpr int kAbsent = -1;

/// One conversion, or literal text when `conversion` is 0.
struct Piece
{
    std::u16string literal;
    std::string flags;
    int width = kAbsent, widthArgument = kAbsent;
    int precision = kAbsent, precisionArgument = kAbsent;
    int argument = kAbsent;
    bool wide = false;
    char conversion = 0;
};

class Parser
{
public:
    explicit Parser(const char16_t* format) : at_(format) {}
    std::vector<Piece> parse();
    std::vector<Argument> arguments; // sorts only

private:
    bool conversion(Piece& piece);
    int number()
    {
        int value = 0;
        while (*at_ >= u'0' && *at_ <= u'9' && value < 100'000'000) {
            value = value * 10 + (*at_++ - u'0');
        }
        return value;
    }
    /// Digits followed by "$" name an argument; without them the next one in order is meant.
    int position()
    {
        const char16_t* start = at_;
        const int value = number();
        if (at_ != start && *at_ == u'$' && value > 0 && value <= kMostArguments) {
            ++at_;
            return value - 1;
        }
        at_ = start;
        return kAbsent;
    }
    int claim(int index, Sort sort)
    {
        if (index == kAbsent) index = next_++;
        if (arguments.size() <= static_cast<std::size_t>(index)) {
            arguments.resize(static_cast<std::size_t>(index) + 1);
        }
        arguments[static_cast<std::size_t>(index)].sort = sort;
        return index;
    }

    static constexpr int kMostArguments = 64;
    const char16_t* at_;
    int next_ = 0;
};

bool Parser::conversion(Piece& piece)
{
    const int named = position();
    while (*at_ == u'-' || *at_ == u'+' || *at_ == u' ' || *at_ == u'#' || *at_ == u'0') {
        piece.flags += static_cast<char>(*at_++);
    }
    if (*at_ == u'*') {
        ++at_;
        piece.widthArgument = claim(position(), Sort::word);
    } else if (*at_ >= u'1' && *at_ <= u'9') {
        piece.width = number();
    }
    if (*at_ == u'.') {
        ++at_;
        if (*at_ == u'*') {
            ++at_;
            piece.precisionArgument = claim(position(), Sort::word);
        } else {
            piece.precision = number();
        }
    }
    int longs = 0;
    for (; *at_ == u'l' || *at_ == u'h' || *at_ == u'z' || *at_ == u'j' || *at_ == u't'; ++at_) {
        if (*at_ == u'l') ++longs;
        else if (*at_ != u'h') longs = 2;
    }
    const char16_t letter = *at_;
    if (letter == 0 || letter > 127) return false;
    ++at_;
    piece.conversion = static_cast<char>(letter);
    switch (letter) {
    case u'd':
    case u'i':
    case u'u':
    case u'x':
    case u'X':
    case u'o':
        // A long is 32 bits on the home platform and 64 here: it is read as the compiler passes it.
        piece.wide = longs > 0;
        piece.argument = claim(named, piece.wide ? Sort::wide : Sort::word);
        return true;
    case u'c': piece.argument = claim(named, Sort::word); return true;
    case u'f':
    case u'e':
    case u'g':
    case u'E':
    case u'G': piece.argument = claim(named, Sort::real); return true;
    case u's': piece.argument = claim(named, Sort::text); return true;
    case u'p': piece.argument = claim(named, Sort::pointer); return true;
    default: return false;
    }
}

std::vector<Piece> Parser::parse()
{
    std::vector<Piece> pieces;
    while (*at_ != 0) {
        if (*at_ == u'%' && at_[1] != u'%') {
            const char16_t* start = at_++;
            Piece piece;
            if (!conversion(piece)) {
                pieces.emplace_back().literal = start;
                break;
            }
            pieces.push_back(piece);
            continue;
        }
        if (pieces.empty() || pieces.back().conversion != 0) pieces.emplace_back();
        if (*at_ == u'%') ++at_;
        pieces.back().literal += *at_++;
    }
    return pieces;
}

void pad(std::u16string& out, std::u16string_view text, const Piece& piece, int width)
{
    const auto room = static_cast<std::size_t>(width < 0 ? 0 : width);
    const std::size_t blanks = room > text.size() ? room - text.size() : 0;
    const bool left = piece.flags.find('-') != std::string::npos;
    if (!left) out.append(blanks, u' ');
    out += text;
    if (left) out.append(blanks, u' ');
}

/// Digits by the C library, which knows every flag; its locale is "C", as no one sets another.
template <typename Number>
void digits(std::u16string& out, const Piece& piece, int width, int precision, Number number,
            const char* length)
{
    std::string spec = "%" + piece.flags;
    if (width != kAbsent) spec += std::to_string(width);
    if (precision != kAbsent) spec += "." + std::to_string(precision);
    spec += length;
    spec += piece.conversion;
    const int size = std::snprintf(nullptr, 0, spec.c_str(), number);
    if (size <= 0) return;
    std::string buffer(static_cast<std::size_t>(size) + 1, '\0');
    std::snprintf(buffer.data(), buffer.size(), spec.c_str(), number);
    out.append(buffer.begin(), buffer.end() - 1);
}

} // namespace

std::u16string formatText(const char16_t* format, va_list list)
{
    Parser parser(format);
    const std::vector<Piece> pieces = parser.parse();
    std::vector<Argument>& arguments = parser.arguments;
    for (Argument& argument : arguments) {
        switch (argument.sort) {
        case Sort::none: // a position that no conversion names: taken as a word
        case Sort::word: argument.number = va_arg(list, int); break;
        case Sort::wide: argument.number = va_arg(list, long); break;
        case Sort::real: argument.real = va_arg(list, double); break;
        case Sort::text: argument.text = va_arg(list, const char16_t*); break;
        case Sort::pointer: argument.pointer = va_arg(list, void*); break;
        }
    }
    const auto at = [&](int index) -> const Argument& {
        return arguments[static_cast<std::size_t>(index)];
    };
    std::u16string out;
    for (Piece piece : pieces) {
        if (piece.conversion == 0) {
            out += piece.literal;
            continue;
        }
        int width = piece.width;
        if (piece.widthArgument != kAbsent)
            width = static_cast<int>(at(piece.widthArgument).number);
        if (width < kAbsent) { // a negative width means left aligned
            piece.flags += '-';
            width = -width;
        }
        int precision = piece.precision;
        if (piece.precisionArgument != kAbsent) {
            precision = static_cast<int>(at(piece.precisionArgument).number);
        }
        const Argument& argument = at(piece.argument);
        switch (argument.sort) {
        case Sort::word:
            if (piece.conversion == 'c') {
                const auto unit = static_cast<char16_t>(argument.number);
                pad(out, {&unit, 1}, piece, width);
            } else {
                digits(out, piece, width, precision, static_cast<int>(argument.number), "");
            }
            break;
        case Sort::wide:
            digits(out, piece, width, precision, static_cast<long>(argument.number), "l");
            break;
        case Sort::real: digits(out, piece, width, precision, argument.real, ""); break;
        case Sort::text: {
            std::u16string_view text = argument.text == nullptr ? u"(null)" : argument.text;
            if (precision >= 0) text = text.substr(0, static_cast<std::size_t>(precision));
            pad(out, text, piece, width);
            break;
        }
        case Sort::pointer: {
            std::array<char, 17> buffer{};
            std::snprintf(buffer.data(), buffer.size(), "%016llX",
                          static_cast<unsigned long long>(
                              reinterpret_cast<std::uintptr_t>(argument.pointer)));
            const std::u16string text(buffer.begin(), buffer.end() - 1);
            pad(out, text, piece, width);
            break;
        }
        case Sort::none: break;
        }
    }
    return out;
}

} // namespace orvald
