// SPDX-License-Identifier: LicenseRef-ORVALD
// The running function's name, and the two reports that begin with it.
#include "marshal/lisp_row.h"

#include "hostapi/lisp.h"
#include "kex/format.h"
#include "kex/message.h"

namespace KEX {
namespace {

std::span<const LispRow> theTable;

} // namespace

void setLispTable(std::span<const LispRow> table) { theTable = table; }

std::span<const LispRow> lispTable() { return theTable; }

const ACHAR* kexLispCurrentName()
{
    const auto code = static_cast<std::size_t>(static_cast<unsigned>(acedGetFunCode()));
    return code < theTable.size() ? theTable[code].name : KT("");
}

void argError(int position)
{
    const CKexString argument = msgGet(KT("AD018"), KT("Argument"));
    const CKexString invalid = msgGet(KT("AD019"), KT("ist ungültig"));
    const CKexString place = position > 0 ? format(KT("{} "), position) : CKexString();
    const CKexString text =
        format(KT("{}: {} {}{}"), kexLispCurrentName(), argument, place, invalid);
    acdbFail(text.c_str());
}

int notBuilt(const resbuf*)
{
    const CKexString missing = msgGet(KT("AD020"), KT("nicht verfügbar"));
    acdbFail(format(KT("{}: {}"), kexLispCurrentName(), missing).c_str());
    return RTERROR;
}

} // namespace KEX
