// SPDX-License-Identifier: LicenseRef-ORVALD
#include "lifecycle/commands.h"

#include "dispatch/dispatch.h"
#include "hostapi/commands.h"
#include "hostapi/lisp.h"
#include "kex/message.h"
#include "kex/perf.h"
#include "kex/system.h"

namespace KEX {
namespace {

void defineAgain() { kexLispRedefine(); }

void resetNorms()
{
    acutPrintf(KT("kex_norm_reset: %s\n"), msgGet(KT("AD020"), KT("nicht verfügbar")).c_str());
}

struct CommandRow
{
    const ACHAR* globalName;
    const ACHAR* localName;
    void (*action)();
};
constexpr CommandRow kCommands[] = {
    {KT("_kex_dump"), KT("kex_dump"), dumpTotals},
    {KT("_kex_defun"), KT("kex_defun"), defineAgain},
    {KT("_kex_norm_reset"), KT("kex_norm_reset"), resetNorms},
};

} // namespace

void registerCommands()
{
    for (const CommandRow& row : kCommands) {
        acedRegCmds->addCommand(kBaseApi, row.globalName, row.localName, 0, row.action, nullptr,
                                -1);
    }
}

void removeCommands() { acedRegCmds->removeGroup(kBaseApi); }

void dumpTotals()
{
    acutPrintf(KT("%s %s\n"), sysVarText(KT("PLATFORM")).c_str(),
               sysVarText(KT("ACADVER")).c_str());
    acutPrintf(KT("%7s %7s %8s %s\n"), KT("Aufrufe"), KT("t-ges"), KT("t"), KT("Name"));
    double all = 0.0;
    const PerfEntry* entry = nullptr;
    for (int i = 0; (entry = perfEntryAtIndex(i)) != nullptr; ++i) {
        acutPrintf(KT("%7ld %8.3lf %9.5lf %s\n"), entry->calls, entry->seconds,
                   entry->seconds / static_cast<double>(entry->calls), entry->name);
        all += entry->seconds;
    }
    acutPrintf(KT("\nGesamt: %6.1lf s\n\n"), all);
    perfReset();
}

} // namespace KEX
