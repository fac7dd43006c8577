// SPDX-License-Identifier: LicenseRef-ORVALD
// The dispatcher: nil as preset result, the handler inside the fault guard and the timer, and one
// report for everything that a handler may throw. Nothing ever leaves it but its answer.
#include "dispatch/dispatch.h"

#include "dispatch/fault_report.h"
#include "hostapi/lisp.h"
#include "kex/dialog.h"
#include "kex/fault.h"
#include "kex/perf.h"
#include "kex/resbuf_chain.h"
#include "kexdata/configuration.h"
#include "marshal/lisp_row.h"

#include <exception>

namespace KEX {
namespace {

constexpr int kNotRead = -1;

struct DispatchState
{
    int debugLevel = kNotRead; // read from the configuration with the first call
    unsigned pendingFault = 0;
};
DispatchState state;

/// A dotted pair may arrive in either form; handlers read the closing form only.
resbuf* normalArguments()
{
    resbuf* const arguments = acedGetArgs();
    for (const resbuf* node = arguments; node != nullptr; node = node->rbnext) {
        if (node->restype != RTDOTE) continue;
        // The first node stays what it is, so the host's chain changes in place.
        CSmartResbuf chain(arguments);
        rbDotConvert(chain, false);
        return chain.release();
    }
    return arguments;
}

int callHandler(const LispRow& row, int code)
{
    acedRetNil();
    const resbuf* const arguments = normalArguments();
    CTimer timer(row.name);
    const int status = row.handler(arguments);
    addPerfTime(code, row.name, timer.stop());
    if (state.debugLevel == kNotRead) {
        state.debugLevel = 0;
        cfg_get(KT("DEBUG"), state.debugLevel);
    }
    if (state.debugLevel > 0) acutPrintf(KT("<ADS - %s>\n"), row.name);
    if (state.pendingFault != 0) throw state.pendingFault;
    return status == RTNORM ? RSRSLT : RSERR;
}

/// What a handler threw as a message. kept: the texts are joined without blanks.
int reportThrown(const LispRow& row, const CKexString& text)
{
    alert(CKexString(KT("Error")) + text + KT(" in:") + row.name);
    return RSERR;
}

} // namespace

void kexPendFault(unsigned code) { state.pendingFault = code; }

int kexLispDispatch()
{
    const int code = acedGetFunCode();
    state.pendingFault = 0;
    const std::span<const LispRow> table = lispTable();
    const auto index = static_cast<std::size_t>(static_cast<unsigned>(code));
    // kept: the bound lets the count itself through; no function has that code.
    if (index > table.size()) return RSERR;
    static constexpr LispRow kBehindLast = {KT(""), notBuilt, KT(""), KT("")};
    const LispRow& row = index < table.size() ? table[index] : kBehindLast;

    unsigned fault = 0;
    try {
        int answer = RSERR;
        if (guardedCall([&] { answer = callHandler(row, code); }, fault)) return answer;
    } catch (const CKexString& message) {
        return reportThrown(row, message);
    } catch (const std::exception& exception) {
        return reportThrown(row, CKexString::fromUtf8(exception.what()));
    }
    return reportFault(row.name, fault) ? RSRSLT : RSERR;
}

} // namespace KEX
