// SPDX-License-Identifier: LicenseRef-ORVALD
#include "key_pool.h"

#include <algorithm>

namespace KEX {

KeyPool& keyPool()
{
    static KeyPool pool;
    return pool;
}

std::uint32_t KeyPool::hashText(TextView text)
{
    // FNV-1a over the capitals, stirred at the end because slots are taken from the low bits.
    std::uint32_t hash = 2166136261u;
    for (const ACHAR unit : text) hash = (hash ^ upperUnit(unit)) * 16777619u;
    hash ^= hash >> 15;
    return hash * 0x2C1B3C6Du;
}

std::uint32_t KeyPool::take(TextView text, std::uint32_t hash)
{
    std::size_t slot = slotOf(hash);
    for (; slots_[slot] != kNone; slot = (slot + 1) & (slots_.size() - 1)) {
        Name& name = names_[slots_[slot]];
        if (name.hash == hash && this->text(slots_[slot]) == text) {
            ++name.users;
            return slots_[slot];
        }
    }
    if ((inUse_ + 1) * 2 > slots_.size()) {
        grow();
        slot = slotOf(hash);
        while (slots_[slot] != kNone) slot = (slot + 1) & (slots_.size() - 1);
    }
    auto copy = std::make_unique<ACHAR[]>(text.size() + 1);
    std::copy(text.begin(), text.end(), copy.get());
    std::uint32_t number = firstFree_;
    if (number == kNone) {
        number = static_cast<std::uint32_t>(names_.size());
        names_.emplace_back();
    } else {
        firstFree_ = names_[number].hash;
    }
    names_[number] = {std::move(copy), static_cast<std::uint32_t>(text.size()), hash, 1};
    slots_[slot] = number;
    ++inUse_;
    return number;
}

void KeyPool::release(std::uint32_t number)
{
    Name& name = names_[number];
    if (--name.users != 0) return;
    const std::size_t mask = slots_.size() - 1;
    std::size_t hole = slotOf(name.hash);
    while (slots_[hole] != number) hole = (hole + 1) & mask;
    // Moves up what a search would no longer reach across the hole.
    for (std::size_t next = (hole + 1) & mask; slots_[next] != kNone; next = (next + 1) & mask) {
        const std::size_t home = slotOf(names_[slots_[next]].hash);
        if (((next - home) & mask) < ((next - hole) & mask)) continue;
        slots_[hole] = slots_[next];
        hole = next;
    }
    slots_[hole] = kNone;
    name.text.reset();
    name.hash = firstFree_;
    firstFree_ = number;
    --inUse_;
}

void KeyPool::grow()
{
    std::vector<std::uint32_t> old(slots_.size() * 2);
    old.swap(slots_);
    for (const std::uint32_t number : old) {
        if (number == kNone) continue;
        std::size_t slot = slotOf(names_[number].hash);
        while (slots_[slot] != kNone) slot = (slot + 1) & (slots_.size() - 1);
        slots_[slot] = number;
    }
}

} // namespace KEX
