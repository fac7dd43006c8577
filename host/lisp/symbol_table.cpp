// SPDX-License-Identifier: LicenseRef-ORVALD
#include "symbol_table.h"

#include "characters.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace orvald::lisp {

namespace {

std::size_t hashOf(std::u16string_view name)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char16_t unit : name) hash = (hash ^ unit) * 0x100000001B3;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

// The name in upper case; `space` holds it when it had to be changed.
std::u16string_view folded(std::u16string_view name, std::u16string& space)
{
    const auto change = std::find_if(name.begin(), name.end(),
                                     [](char16_t unit) { return text::upperUnit(unit) != unit; });
    if (change == name.end()) return name;
    space = text::upperText(name);
    return space;
}

} // namespace

SymbolTable::SymbolTable() : slots_(2048) {}

std::size_t SymbolTable::place(std::u16string_view upper, std::size_t hash) const
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = hash & mask;
    while (slots_[i].symbol != nullptr &&
           (slots_[i].hash != hash || slots_[i].symbol->name != upper)) {
        i = (i + 1) & mask;
    }
    return i;
}

void SymbolTable::insert(Symbol* symbol, std::size_t hash)
{
    if ((used_ + 1) * 2 > slots_.size()) {
        std::vector<Slot> old(slots_.size() * 2);
        old.swap(slots_);
        for (const Slot& slot : old) {
            if (slot.symbol != nullptr) slots_[place(slot.symbol->name, slot.hash)] = slot;
        }
    }
    slots_[place(symbol->name, hash)] = {symbol, hash};
    ++used_;
    bytes_ += sizeof(Symbol) + 2 * sizeof(Slot);
}

Symbol* SymbolTable::find(std::u16string_view name) const
{
    std::u16string space;
    const std::u16string_view upper = folded(name, space);
    return slots_[place(upper, hashOf(upper))].symbol;
}

Symbol* SymbolTable::intern(std::u16string_view name)
{
    std::u16string space;
    const std::u16string_view upper = folded(name, space);
    const std::size_t hash = hashOf(upper);
    if (Symbol* known = slots_[place(upper, hash)].symbol) return known;

    if (upper.size() > nameLeft_) {
        const std::size_t size = std::max<std::size_t>(upper.size(), 4096);
        nameChunks_.push_back(std::make_unique<char16_t[]>(size));
        nameNext_ = nameChunks_.back().get();
        nameLeft_ = size;
        bytes_ += size * sizeof(char16_t);
    }
    std::copy(upper.begin(), upper.end(), nameNext_);
    Symbol& symbol = symbols_.emplace_back();
    symbol.name = {nameNext_, upper.size()};
    nameNext_ += upper.size();
    nameLeft_ -= upper.size();
    insert(&symbol, hash);
    return &symbol;
}

void SymbolTable::adopt(Symbol& symbol, std::u16string_view name)
{
    symbol.name = name;
    insert(&symbol, hashOf(name));
}

} // namespace orvald::lisp
