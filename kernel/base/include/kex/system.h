// SPDX-License-Identifier: LicenseRef-ORVALD
// Environment variables, the registry of user settings, and what the host says about itself.
#pragma once

#include "kex/point.h"
#include "kex/string.h"

#include <optional>

namespace KEX {

/// "" when the variable is not set.
KEX_BASE_API CKexString envGet(TextView name);
/// For this process and those that it starts; false for an impossible name.
KEX_BASE_API bool envSet(TextView name, TextView value);
/// A text with the value of a variable in place of each %NAME%; what is no variable stays.
KEX_BASE_API CKexString envExpand(TextView text);

/// Registry key of the application; its sub-keys follow behind a "\".
KEX_BASE_API CKexString regAppKey();
/// Makes a key with the keys above it; true when it exists afterwards.
KEX_BASE_API bool regMakeKey(TextView key);
KEX_BASE_API bool regHasKey(TextView key);
/// "" when key or value is missing.
KEX_BASE_API CKexString regGet(TextView key, TextView name);
KEX_BASE_API bool regSet(TextView key, TextView name, TextView value);

/// A system variable of the host as text, numbers as LISP prints them; "" when it is unknown or no
/// such value.
KEX_BASE_API CKexString sysVarText(const ACHAR* name);
/// A system variable as integer; `missing` when it is unknown or none.
KEX_BASE_API int sysVarInt(const ACHAR* name, int missing);
/// A system variable as real; nothing when it is unknown or none.
KEX_BASE_API std::optional<double> sysVarReal(const ACHAR* name);
/// A system variable as point, Z 0.0 when it has two coordinates; nothing when it is unknown or
/// none.
KEX_BASE_API std::optional<CKexPoint3d> sysVarPoint(const ACHAR* name);

/// Release of the host: high byte and low byte of the number that ACADVER begins with, "20.0s"
/// gives 0x1400. 0 when the host does not say.
KEX_BASE_API int acadver();
/// Version text of the running kernel, as curVerSet left it; "" before.
KEX_BASE_API CKexString curVer();
KEX_BASE_API void curVerSet(TextView version);

} // namespace KEX

/// File name of a module of the system: ("Kex", "Dbx", "Dbx") gives "Kex_2015_18_32_Dbx.dbx". The
/// third part is the kind, which becomes the extension in small letters.
KEX_BASE_API CKexString kexAppFileName(KEX::TextView product, KEX::TextView part,
                                       KEX::TextView kind);
