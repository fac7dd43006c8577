// SPDX-License-Identifier: LicenseRef-ORVALD
// What the data library shows to other modules. Everything else in it is hidden.
#pragma once

#ifndef _WIN32
#define KEX_DATA_API __attribute__((visibility("default")))
#elif defined(KEX_DATA_EXPORTS)
#define KEX_DATA_API __declspec(dllexport)
#else
#define KEX_DATA_API __declspec(dllimport)
#endif
