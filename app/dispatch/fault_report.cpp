// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dispatch/fault_report.h"

#include "hostapi/lisp.h"
#include "kex/fault.h"
#include "kex/format.h"
#include "kex/paths.h"
#include "kex/rb_text.h"
#include "kex/ui.h"

namespace KEX {
namespace {

CKexString fileNameOf(const ACHAR* path)
{
    TextView name(path);
    const std::size_t slash = name.find_last_of(KT("/\\"));
    if (slash != TextView::npos) name.remove_prefix(slash + 1);
    return name;
}

/// The dump lets the failing call be repeated; that it cannot be written must not hide the fault.
void dumpArguments(const ACHAR* name)
{
    CKexString file = name;
    file.replace(KT(":"), KT(";"));
    writeTextFile(tmp_dir() + file + KT(".arg"), rbText(acedGetArgs()));
}

} // namespace

bool reportFault(const ACHAR* name, unsigned fault)
{
    unsigned second = 0;
    guardedCall([&] { dumpArguments(name); }, second);
    return askOkCancel(KT("ORVALD"), format(KT("{}:\nAusnahme 0x{:x} in: {}\n\nWeiter ?\n"),
                                            fileNameOf(acedGetAppName()), fault, name));
}

} // namespace KEX
