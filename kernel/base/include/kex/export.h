// SPDX-License-Identifier: LicenseRef-ORVALD
// What the base library shows to other modules. Everything else in it is hidden.
#pragma once

#ifndef _WIN32
#define KEX_BASE_API __attribute__((visibility("default")))
#elif defined(KEX_BASE_EXPORTS)
#define KEX_BASE_API __declspec(dllexport)
#else
#define KEX_BASE_API __declspec(dllimport)
#endif
