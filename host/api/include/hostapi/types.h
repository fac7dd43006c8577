// SPDX-License-Identifier: LicenseRef-ORVALD
// Basic types and status codes of the host's interface. Everything under hostapi/ is declared here
// and defined by the host: the headless host on Linux, AutoCAD's own development kit on Windows.
#pragma once

#include <cstdint>

/// A UTF-16 code unit. Lengths are counted in these on every platform.
#ifdef _WIN32
using ACHAR = wchar_t;
#define ACRX_T(text) L##text
#else
using ACHAR = char16_t;
#define ACRX_T(text) u##text
#endif
static_assert(sizeof(ACHAR) == 2, "lengths are counted in UTF-16 units");

#ifndef _WIN32
#define HOST_API __attribute__((visibility("default")))
#elif defined(HOST_API_EXPORTS)
#define HOST_API __declspec(dllexport)
#else
#define HOST_API __declspec(dllimport)
#endif

using ads_real = double;
/// X, Y, Z.
using ads_point = ads_real[3];
/// Name of a database object or of a selection set; both words 0 is the null name.
using ads_name = std::int32_t[2];

using Adesk_Int32 = std::int32_t;

// Status of the C functions.
inline constexpr int RTNORM = 5100;
inline constexpr int RTERROR = -5001;
inline constexpr int RTCAN = -5002;   // the user pressed Esc
inline constexpr int RTREJ = -5003;   // the host rejected the request
inline constexpr int RTFAIL = -5004;  // no connection to LISP
inline constexpr int RTKWORD = -5005; // a keyword was entered

// Result of a registered function.
inline constexpr int RSRSLT = 1; // the value is set
inline constexpr int RSERR = 3;  // the calling LISP program gets an error

namespace Acad {
/// Status of the database and frame classes; only eOk has a fixed number.
enum ErrorStatus : int
{
    eOk = 0,
    eInvalidInput,
    eOutOfMemory,
    eNullObjectId,
    eNullObjectPointer,
    eNullHandle,
    eUnknownHandle,
    eInvalidAdsName,
    eNoDatabase,
    eWrongDatabase,
    eNoDocument,
    eLockViolation,
    eVetoed,
    eWasErased,
    eWasNotErased,
    ePermanentlyErased,
    eWasOpenForRead,
    eWasOpenForWrite,
    eWasOpenForNotify,
    eWasOpenForUndo,
    eWasNotifying,
    eAtMaxReaders,
    eHadMultipleReaders,
    eNotOpenForRead,
    eNotOpenForWrite,
    eInvalidOpenState,
    eNotThatKindOfClass,
    eOnLockedLayer,
    eAlreadyInDb,
    eNotInDatabase,
    eContainerNotEmpty,
    eKeyNotFound,
    eDuplicateKey,
    eInvalidKey,
    eDuplicateRecordName,
    eInvalidDxfCode,
    eRegappIdNotFound,
    eXdataSizeExceeded,
    eCannotBeErasedByCaller,
    eFileNotFound,
    eFileAccessErr,
    eNotApplicable,
    eNullExtents,
    eCannotScaleNonUniformly,
    eNotHandled
};
} // namespace Acad
