// SPDX-License-Identifier: LicenseRef-ORVALD
// What the object library shows to other modules. Everything else in it is hidden.
#pragma once

#ifndef _WIN32
#define KEX_OBJ_API __attribute__((visibility("default")))
#elif defined(KEX_OBJ_EXPORTS)
#define KEX_OBJ_API __declspec(dllexport)
#else
#define KEX_OBJ_API __declspec(dllimport)
#endif
