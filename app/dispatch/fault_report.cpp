// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dispatch/fault_report.h"

#include "hostapi/lisp.h"
#include "kex/dialog.h"
#include "kex/fault.h"
#include "kex/files.h"
#include "kex/format.h"
#include "kex/rb_print.h"

namespace KEX {
namespace {

/// The dump lets the failing call be repeated; that it cannot be written must not hide the fault.
void dumpArguments(const ACHAR* name)
{
    CKexString file = name;
    file.replace(KT(":"), KT(";"));
    fileSave(tmp_dir() + file + KT(".arg"), toUtf8(rbPrint(acedGetArgs())));
}

} // namespace

bool reportFault(const ACHAR* name, unsigned fault)
{
    unsigned second = 0;
    guardedCall([&] { dumpArguments(name); }, second);
    return askOkCancel(KT("ORVALD"), format(KT("{}:\nAusnahme 0x{:x} in: {}\n\nWeiter ?\n"),
                                            fileNameOnly(acedGetAppName()), fault, name));
}

} // namespace KEX
