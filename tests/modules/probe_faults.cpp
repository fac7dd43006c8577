// SPDX-License-Identifier: LicenseRef-ORVALD
// Handlers that fault, each in another way. What they reach for is volatile, so that the compiler
// cannot see the fault and leave it out.
#include "probe.h"

#include "dispatch/dispatch.h"
#include "kex/fault.h"
#include "kex/promise.h"
#include "kex/string.h"
#include "marshal/ret_ads.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace probe {

using namespace KEX;

namespace {

int* volatile nowhere = nullptr;
volatile int zero = 0;
void (*volatile noFunction)() = nullptr;

int (*volatile again)(int) = nullptr;

int deeper(int n)
{
    volatile char room[4096];
    room[0] = static_cast<char>(n);
    return again(n + 1) + room[0];
}

void throwError() { throw std::runtime_error("never"); }
void (*volatile breaks)() = throwError;

void promised() noexcept { breaks(); }

struct Falls
{
    ~Falls() { *nowhere = 1; }
};

} // namespace

int faultRead(const resbuf*) { return *nowhere; }

int faultWrite(const resbuf*)
{
    *nowhere = 1;
    return RTNORM;
}

int faultDivide(const resbuf*) { return 7 / zero; }

int faultIllegal(const resbuf*)
{
    __builtin_trap();
    return RTNORM;
}

int faultCall(const resbuf*)
{
    noFunction();
    return RTNORM;
}

int faultStack(const resbuf*)
{
    again = deeper;
    return deeper(0);
}

int faultPromise(const resbuf*)
{
    KEX_ASSERT(zero == 1, "the probe breaks it");
    return RTNORM;
}

int faultNoexcept(const resbuf*)
{
    promised();
    return RTNORM;
}

int faultDestructor(const resbuf*)
{
    const Falls falls;
    return RTNORM;
}

int faultSort(const resbuf*)
{
    int values[] = {2, 1};
    std::qsort(values, 2, sizeof values[0], [](const void*, const void*) { return *nowhere; });
    return RTNORM;
}

/// The value is set before the fault, so OK in the box lets it through.
int faultPending(const resbuf*)
{
    kexPendFault(kFaultAccess);
    return retAds(5);
}

/// Faults while it owns things that must be given back.
int faultInDepth(const resbuf* args)
{
    const CKexString text(KT('x'), 100'000);
    const CSmartResbuf copy = rbCopyAll(args);
    return faultRead(copy) + text.len();
}

/// Does not come back.
int faultNever(const resbuf*)
{
    while (zero == 0) {
    }
    return RTNORM;
}

int throwText(const resbuf*) { throw CKexString(KT("keine Norm")); }

int throwStandard(const resbuf*) { throw std::out_of_range("too far"); }

} // namespace probe
