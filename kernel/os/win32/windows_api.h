// SPDX-License-Identifier: LicenseRef-ORVALD
// The Windows calls, with texts in UTF-16.
#pragma once

#define UNICODE
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
