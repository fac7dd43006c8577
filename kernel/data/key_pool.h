// SPDX-License-Identifier: LicenseRef-ORVALD
// The texts of directory keys, each kept once: the same few names stand in thousands of
// directories. A text is known by a number for as long as it has users. LISP thread only.
#pragma once

#include "kex/text.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace KEX {

class KeyPool
{
public:
    /// Never the number of a text.
    static constexpr std::uint32_t kNone = 0;

    /// The same for all spellings of a text.
    static std::uint32_t hashText(TextView text);

    /// Number of a text, with one user more. `hash` is hashText of it. Spellings are kept apart.
    std::uint32_t take(TextView text, std::uint32_t hash);
    void addUser(std::uint32_t name) { ++names_[name].users; }
    void release(std::uint32_t name);
    TextView text(std::uint32_t name) const
    {
        return {names_[name].text.get(), names_[name].units};
    }
    std::uint32_t hash(std::uint32_t name) const { return names_[name].hash; }

private:
    struct Name
    {
        std::unique_ptr<ACHAR[]> text;
        std::uint32_t units = 0;
        std::uint32_t hash = 0;
        std::uint32_t users = 0; // 0: free, and `hash` is the next free one
    };

    std::size_t slotOf(std::uint32_t hash) const { return hash & (slots_.size() - 1); }
    void grow();

    std::vector<Name> names_ = std::vector<Name>(1); // the first stands for kNone
    std::vector<std::uint32_t> slots_ = std::vector<std::uint32_t>(64); // open addressing
    std::uint32_t inUse_ = 0;
    std::uint32_t firstFree_ = kNone;
};

/// The pool of the process. A static object that holds directories must ask for it before it makes
/// the first one, so that the pool outlives it; CKexDataDir's constructor does.
KeyPool& keyPool();

} // namespace KEX
