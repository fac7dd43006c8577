// SPDX-License-Identifier: LicenseRef-ORVALD
// The stack of dialog windows for LISP: a handle is text, upper-case hexadecimal of a pointer's
// full width.
#include "functions/app_rows.h"
#include "kex/dialog.h"
#include "kex/format.h"
#include "marshal/ret_ads.h"

#include <cstdint>

namespace KEX {
namespace {

CKexString handleText(const void* handle)
{
    const auto number = reinterpret_cast<std::uintptr_t>(handle);
    return sizeof(void*) == 8 ? format(KT("{:016X}"), number) : format(KT("{:08X}"), number);
}

/// Reads what handleText writes, in either case, also behind "0x"; null for anything else.
void* handleOf(TextView text)
{
    if (text.starts_with(KT("0x")) || text.starts_with(KT("0X"))) text.remove_prefix(2);
    std::uintptr_t number = 0;
    for (const ACHAR unit : text) {
        const ACHAR digit = upperUnit(unit);
        const bool decimal = digit >= KT('0') && digit <= KT('9');
        if (!decimal && (digit < KT('A') || digit > KT('F'))) return nullptr;
        number =
            number * 16 + static_cast<unsigned>(decimal ? digit - KT('0') : digit - KT('A') + 10);
    }
    return reinterpret_cast<void*>(number);
}

} // namespace

int dlgPush(const resbuf* args)
{
    if (args != nullptr && args->restype == RTSTR) {
        if (void* handle = handleOf(args->resval.rstring)) dlgStackPush(handle);
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
