// SPDX-License-Identifier: LicenseRef-ORVALD
// The stack of dialog windows for LISP: a handle is text, upper-case hexadecimal of a pointer's
// full width.
#include "functions/app_rows.h"
#include "kex/dialog.h"
#include "kex/format.h"
#include "marshal/ret_ads.h"

#include <cstdint>
#include <optional>

namespace KEX {
namespace {

constexpr std::size_t kMostDigits = 2 * sizeof(void*);

CKexString handleText(const void* handle)
{
    const auto number = reinterpret_cast<std::uintptr_t>(handle);
    return format(KT("{:X}"), number).lfill(static_cast<int>(kMostDigits), KT('0'));
}

/// Reads what handleText writes, in either case, also behind "0x"; nothing for any other text.
std::optional<void*> handleOf(TextView text)
{
    if (text.starts_with(KT("0x")) || text.starts_with(KT("0X"))) text.remove_prefix(2);
    if (text.empty() || text.size() > kMostDigits) return std::nullopt;
    std::uintptr_t number = 0;
    for (const ACHAR unit : text) {
        const ACHAR digit = upperUnit(unit);
        const bool decimal = digit >= KT('0') && digit <= KT('9');
        if (!decimal && (digit < KT('A') || digit > KT('F'))) return std::nullopt;
        number =
            number * 16 + static_cast<unsigned>(decimal ? digit - KT('0') : digit - KT('A') + 10);
    }
    return reinterpret_cast<void*>(number);
}

} // namespace

int dlgPush(const resbuf* args)
{
    if (args != nullptr && args->restype == RTSTR) {
        const std::optional<void*> handle = handleOf(args->resval.rstring);
        if (handle.has_value()) dlgStackPush(*handle);
    }
    const bool active = dialogActive();
    if (active) dlgStackPush(activeWindow());
    return retAds(active);
}

int dlgPop(const resbuf*)
{
    if (dlgStackIsEmpty()) return retAds(false);
    return retAds(handleText(dlgStackPop()));
}

int dlgStack(const resbuf*)
{
    CKexArrayTempl<void*> handles;
    CKexArrayTempl<CKexString> texts;
    while (!dlgStackIsEmpty()) {
        handles.append(dlgStackPop());
        texts.append(handleText(handles.last()));
    }
    for (int i = handles.length(); i > 0; --i) dlgStackPush(handles[i - 1]);
    return retAds(texts);
}

} // namespace KEX
