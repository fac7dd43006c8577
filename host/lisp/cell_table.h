// SPDX-License-Identifier: LicenseRef-ORVALD
// What is known about single list cells (where they were read, what they were compiled to), kept
// beside the heap. An entry does not keep its cell alive; the collector has dead ones dropped.
#pragma once

#include "lisp/value.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orvald::lisp {

template <class T>
class CellTable
{
public:
    const T* find(const Cons* cell) const
    {
        if (slots_.empty()) return nullptr;
        const Slot& slot = slots_[place(slots_, cell)];
        return slot.cell == nullptr ? nullptr : &slot.value;
    }

    void set(const Cons* cell, T value)
    {
        if ((used_ + 1) * 2 > slots_.size())
            rebuild(used_ * 4 + 16, [](const Cons*) { return true; });
        Slot& slot = slots_[place(slots_, cell)];
        if (slot.cell == nullptr) ++used_;
        slot = {cell, std::move(value)};
    }

    /// Drops the entries whose cell `keep` denies.
    template <class F>
    void sweep(F&& keep)
    {
        bool dead = false;
        for (const Slot& slot : slots_) dead = dead || (slot.cell != nullptr && !keep(slot.cell));
        if (dead) rebuild(used_ * 2 + 16, keep);
    }

    template <class F>
    void forEach(F&& f)
    {
        for (Slot& slot : slots_) {
            if (slot.cell != nullptr) f(slot.cell, slot.value);
        }
    }

private:
    struct Slot
    {
        const Cons* cell = nullptr;
        T value{};
    };

    static std::size_t place(const std::vector<Slot>& slots, const Cons* cell)
    {
        const std::size_t mask = slots.size() - 1;
        const auto bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(cell) >> 4);
        std::size_t i = static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15) >> 20) & mask;
        while (slots[i].cell != nullptr && slots[i].cell != cell) i = (i + 1) & mask;
        return i;
    }

    template <class F>
    void rebuild(std::size_t least, F&& keep)
    {
        std::size_t size = 16;
        while (size < least) size *= 2;
        std::vector<Slot> fresh(size);
        std::size_t kept = 0;
        for (Slot& slot : slots_) {
            if (slot.cell == nullptr || !keep(slot.cell)) continue;
            fresh[place(fresh, slot.cell)] = std::move(slot);
            ++kept;
        }
        slots_ = std::move(fresh);
        used_ = kept;
    }

    std::vector<Slot> slots_; // open addressing, size a power of two, at most half full
    std::size_t used_ = 0;
};

} // namespace orvald::lisp
