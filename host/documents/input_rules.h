// SPDX-License-Identifier: LicenseRef-ORVALD
// The rules that initget sets for one input: which values are refused, which keywords are taken.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvald {

/// The keywords of one input, as a program writes them.
///
/// Apart by blanks. A word may be shortened down to its capitals ("LType": LT, LTY ...; "eXit": X)
/// or, written "LTYPE,LT", down to what follows the comma; else it is typed whole. Behind a lone
/// "_" the same words follow in the language of programs: the word of the same place is the answer
/// then, and a user types it with a leading "_".
class Keywords
{
public:
    Keywords() = default;
    explicit Keywords(std::u16string_view list);

    bool empty() const { return words_.empty(); }
    /// The answer that `typed` stands for, the first one that fits; nothing when it is none. Case
    /// does not matter.
    std::optional<std::u16string> match(std::u16string_view typed) const;

private:
    struct Word
    {
        std::u16string text;     // as it stands in the list, without a comma and what follows
        std::u16string required; // what must be typed at least, upper case
    };
    static Word parse(std::u16string_view token);
    static bool fits(const Word& word, std::u16string_view typed);

    std::vector<Word> words_;   // local words
    std::vector<Word> globals_; // the same in the language of programs; empty without a "_"
};

struct InputRules
{
    enum Bits : int
    {
        kNoEnter = 1,
        kNoZero = 2,
        kNoNegative = 4,
        kFlat = 64,    // getdist: without Z
        kAnyText = 128 // text that is neither keyword nor value is an answer too
    };
    int bits = 0;
    Keywords keywords;
};

} // namespace orvald
