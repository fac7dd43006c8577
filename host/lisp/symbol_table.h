// SPDX-License-Identifier: LicenseRef-ORVALD
// All symbols of a world by name. Symbols are never removed, so a pointer to one is always good.
#pragma once

#include "lisp/value.h"

#include <deque>
#include <memory>
#include <string_view>
#include <vector>

namespace orvald::lisp {

class SymbolTable
{
public:
    SymbolTable();

    /// The symbol of that name, folded to upper case; made when there is none.
    Symbol* intern(std::u16string_view name);
    /// The same without making one.
    Symbol* find(std::u16string_view name) const;
    /// Enters a symbol that lives elsewhere. `name` is upper-case text of static life.
    void adopt(Symbol& symbol, std::u16string_view name);

    /// Memory held; it never shrinks.
    std::size_t bytes() const { return bytes_; }

    template <class F>
    void forEach(F&& f) const
    {
        for (const Slot& slot : slots_) {
            if (slot.symbol != nullptr) f(*slot.symbol);
        }
    }

private:
    struct Slot
    {
        Symbol* symbol = nullptr;
        std::size_t hash = 0;
    };
    // The slot of that upper-case name, or the free one where it belongs.
    std::size_t place(std::u16string_view upper, std::size_t hash) const;
    void insert(Symbol* symbol, std::size_t hash);

    std::vector<Slot> slots_; // open addressing, size a power of two, at most half full
    std::size_t used_ = 0;
    std::deque<Symbol> symbols_;
    std::vector<std::unique_ptr<char16_t[]>> nameChunks_;
    char16_t* nameNext_ = nullptr;
    std::size_t nameLeft_ = 0;
    std::size_t bytes_ = 0;
};

} // namespace orvald::lisp
