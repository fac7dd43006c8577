// SPDX-License-Identifier: LicenseRef-ORVALD
// Lengths, positions and character codes. Lengths count UTF-16 units; positions count from 1, and
// what is not found is nil.
#include "kex/search.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/character.h"
#include "str/str_rows.h"

#include <algorithm>

namespace KEX {
namespace {

/// A position in the kernel's count as LISP result.
int retPosition(std::size_t position)
{
    if (position == TextView::npos) return retAds(false);
    return retAds(static_cast<int>(position) + 1);
}

/// First unit of the text that stands in the set, or that does not.
int retFirst(const resbuf* args, bool standsIn)
{
    ArgReader in(args);
    const TextView text = in.text(1);
    const TextView set = in.text(2);
    if (in.failed()) return in.fail();
    const UnitSet units(set);
    const auto hit =
        std::ranges::find_if(text, [&](ACHAR unit) { return units.contains(unit) == standsIn; });
    return retPosition(hit == text.end() ? TextView::npos
                                         : static_cast<std::size_t>(hit - text.begin()));
}

/// Where `find` finds the character of the second argument.
template <class Find>
int retCharacter(const resbuf* args, Find find)
{
    ArgReader in(args);
    const TextView text = in.text(1);
    in.require(!in.isLast(), 2);
    if (in.failed()) return in.fail();
    const std::optional<ACHAR> unit = characterOf(in.any());
    if (!unit) return RTERROR; // kept: without a message
    return retPosition(find(text, *unit));
}

} // namespace

std::optional<ACHAR> characterOf(const resbuf* node)
{
    if (node == nullptr) return std::nullopt;
    if (node->restype == RTSTR) {
        const TextView text(node->resval.rstring);
        return text.empty() ? ACHAR(0) : text[0];
    }
    int code = 0;
    if (!readInteger(node, code)) return std::nullopt;
    return static_cast<ACHAR>(code & 0xFFFF);
}

int strLen(const resbuf* args)
{
    ArgReader in(args);
    const TextView text = in.text(0);
    if (in.failed()) return in.fail();
    return retAds(static_cast<int>(text.size()));
}

int strStr(const resbuf* args)
{
    ArgReader in(args);
    in.require(!in.isLast(), 0); // kept: only a call without any argument names no position
    const TextView text = in.text(1);
    const TextView part = in.text(2);
    if (in.failed()) return in.fail();
    return retPosition(findText(text, part));
}

int strChr(const resbuf* args)
{
    return retCharacter(args, [](TextView text, ACHAR unit) { return findUnit(text, unit); });
}

int strRChr(const resbuf* args)
{
    return retCharacter(args, [](TextView text, ACHAR unit) { return text.rfind(unit); });
}

int strPbrk(const resbuf* args) { return retFirst(args, true); }
int strSpn(const resbuf* args) { return retFirst(args, false); }

int ascii(const resbuf* args)
{
    ArgReader in(args);
    const TextView text = in.text(0);
    if (in.failed()) return in.fail();
    return retAds(text.empty() ? 0 : static_cast<int>(text[0]));
}

int chr(const resbuf* args)
{
    ArgReader in(args);
    const int code = in.integer(0);
    if (in.failed()) return in.fail();
    const ACHAR unit[] = {static_cast<ACHAR>(code & 0xFFFF), 0};
    return retAds(unit); // code 0 gives ""
}

} // namespace KEX
