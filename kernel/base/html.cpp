// SPDX-License-Identifier: LicenseRef-ORVALD
// HTML entities of a text.
#include "kex/string.h"

#include "kex/format.h"
#include "kex/hex.h"

#include <cstdint>

using KEX::TextView;

namespace {

struct Entity
{
    const ACHAR* name;
    ACHAR unit;
    bool escaped; // written by escapeHtml; the others are only read
};

constexpr Entity kEntities[] = {
    {KT("amp"), KT('&'), true},        {KT("lt"), KT('<'), true},
    {KT("gt"), KT('>'), true},         {KT("quot"), KT('"'), true},
    {KT("#39"), KT('\''), true},       {KT("apos"), KT('\''), false},
    {KT("nbsp"), KT('\u00A0'), false}, {KT("auml"), KT('\u00E4'), false},
    {KT("ouml"), KT('\u00F6'), false}, {KT("uuml"), KT('\u00FC'), false},
    {KT("Auml"), KT('\u00C4'), false}, {KT("Ouml"), KT('\u00D6'), false},
    {KT("Uuml"), KT('\u00DC'), false}, {KT("szlig"), KT('\u00DF'), false},
    {KT("deg"), KT('\u00B0'), false},  {KT("euro"), KT('\u20AC'), false},
};

constexpr unsigned kLastPlain = 126;
constexpr std::uint32_t kLastCode = 0x10FFFF;
/// Longest reference that is looked for, "&" and ";" included: "&#x10FFFF;" and leading zeros.
constexpr std::size_t kLongest = 16;

const ACHAR* entityOf(ACHAR unit)
{
    for (const Entity& entity : kEntities) {
        if (entity.escaped && entity.unit == unit) return entity.name;
    }
    return nullptr;
}

/// The code point of "#65" or "#x41"; 0 when it is none that a text can hold.
std::uint32_t referenceCode(TextView name)
{
    const bool hexadecimal = name.size() > 1 && (name[1] == KT('x') || name[1] == KT('X'));
    const int base = hexadecimal ? 16 : 10;
    name.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    for (const ACHAR unit : name) {
        const int digit = KEX::hexDigit(unit);
        if (digit < 0 || digit >= base) return 0;
        code = code * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
        if (code > kLastCode) return 0;
    }
    return code;
}

/// Appends what "&name;" stands for; false when it stands for nothing.
bool appendEntity(CKexString& to, TextView name)
{
    if (name.empty()) return false;
    for (const Entity& entity : kEntities) {
        if (name == TextView(entity.name)) {
            to += entity.unit;
            return true;
        }
    }
    const std::uint32_t code = name[0] == KT('#') ? referenceCode(name) : 0;
    if (code == 0) return false;
    if (code >= 0x10000) {
        to += static_cast<ACHAR>(0xD7C0 + (code >> 10));
        to += static_cast<ACHAR>(0xDC00 + (code & 0x3FF));
    } else {
        to += static_cast<ACHAR>(code);
    }
    return true;
}

} // namespace

CKexString& CKexString::escapeHtml(bool all)
{
    CKexString result;
    result.reserve(len());
    for (int i = 0; i < len(); ++i) {
        const ACHAR unit = (*this)[i];
        if (const ACHAR* name = entityOf(unit)) {
            result += KT('&');
            result += name;
            result += KT(';');
        } else if (all && unit > kLastPlain) {
            const ACHAR next = (*this)[i + 1];
            std::uint32_t code = unit;
            if (KEX::isHighSurrogate(unit) && KEX::isLowSurrogate(next)) {
                code = 0x10000 + ((code - 0xD800) << 10) + (std::uint32_t(next) - 0xDC00);
                ++i;
            }
            result += KEX::format(KT("&#{};"), code);
        } else {
            result += unit;
        }
    }
    return *this = std::move(result);
}

CKexString& CKexString::unEscapeHtml()
{
    CKexString result;
    result.reserve(len());
    const TextView text = view();
    for (std::size_t at = 0; at < text.size();) {
        const TextView ahead = text.substr(at, kLongest);
        const std::size_t end = ahead[0] == KT('&') ? ahead.find(KT(';')) : TextView::npos;
        if (end != TextView::npos && appendEntity(result, ahead.substr(1, end - 1))) {
            at += end + 1;
        } else {
            result += text[at++];
        }
    }
    return *this = std::move(result);
}
