// SPDX-License-Identifier: LicenseRef-ORVALD
// The C++ runtime's record of the exceptions that a thread handles. A jump out of the handling of a
// fault leaves it as it was in the middle of that; it must be put right.
#pragma once

#include <cxxabi.h>

/// Head of that record, as the runtime's binary interface fixes it.
struct ExceptionRecord
{
    void* caught;
    unsigned uncaught;
};

/// The record of this thread.
inline ExceptionRecord* exceptionRecord()
{
    return reinterpret_cast<ExceptionRecord*>(abi::__cxa_get_globals());
}

/// Ends the handling of exceptions that began after the record was as in `before`.
inline void dropExceptions(ExceptionRecord& record, const ExceptionRecord& before)
{
    while (record.caught != nullptr && record.caught != before.caught) abi::__cxa_end_catch();
    record.uncaught = before.uncaught;
}
