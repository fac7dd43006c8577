// SPDX-License-Identifier: LicenseRef-ORVALD
// Text to data. The reader keeps its own stack of open lists, so that nesting has no limit but
// memory; it never evaluates and never collects garbage.
#pragma once

#include "heap.h"
#include "symbol_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvald::lisp {

/// The text is no datum. `openings`: the places that wait for their end, innermost first, as
/// offsets into the text; for a surplus character its own place.
struct ReadFault
{
    const char16_t* message;
    std::vector<std::size_t> openings;
};

/// Told of every list with the line on which it opens.
class ListPlaces
{
public:
    virtual ~ListPlaces() = default;
    virtual void listRead(const Cons* list, int line) = 0;
};

class Reader
{
public:
    Reader(Heap& heap, SymbolTable& symbols, std::u16string_view text,
           ListPlaces* places = nullptr);

    /// The next datum; false at the end of the text. Throws ReadFault.
    bool next(Value& datum);

private:
    // An open list, or a quote that waits for its datum.
    struct Level
    {
        enum class State
        {
            items,
            afterDot,
            afterTail,
            quote
        };
        State state = State::items;
        Cons* first = nullptr;
        Cons* last = nullptr;
        std::size_t opening = 0;
        int line = 0;
    };

    [[noreturn]] void fail(const char16_t* message) const;
    [[noreturn]] void failAt(const char16_t* message, std::size_t place) const;
    void skipBlanks();
    Value readString();
    Value readToken();
    // Puts a finished datum into the innermost open level; true when it is the whole.
    bool deliver(Value& datum);
    Value closeList();

    Heap& heap_;
    SymbolTable& symbols_;
    std::u16string_view text_;
    ListPlaces* places_;
    Symbol* quote_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<Level> levels_;
    std::u16string unescaped_;
};

} // namespace orvald::lisp
