// SPDX-License-Identifier: LicenseRef-ORVALD
#include "fault_plan.h"

namespace kexos {
namespace {

struct FaultPlan
{
    int failing = 0; // number of the call that fails, 0: none
    int made = 0;
    FileFault fault = FileFault::error;
};
FaultPlan plan;

} // namespace

void failFileCall(int n, FileFault fault) { plan = {n, 0, fault}; }
int fileCalls() { return plan.made; }

std::optional<FileFault> countFileCall()
{
    if (++plan.made != plan.failing) return std::nullopt;
    return plan.fault;
}

} // namespace kexos
