// SPDX-License-Identifier: LicenseRef-ORVALD
// Settings of the user outside the configuration: keys, their sub-keys ("KEX\Dialogs") and string
// values, all UTF-8. Under Windows they stand in the registry, under "Software" of the current user;
// elsewhere in one text file in the home folder, saved as a whole. Names are equal without regard to
// the case of A to Z, under Windows to that of all letters.
#pragma once

#include "kex/export.h"

#include <optional>
#include <string>

namespace kexos {

/// Makes a key with the keys above it. True when it exists afterwards.
KEX_BASE_API bool registryMakeKey(const std::string& key);
KEX_BASE_API bool registryHasKey(const std::string& key);
/// Nothing when key or value is missing.
KEX_BASE_API std::optional<std::string> registryValue(const std::string& key,
                                                      const std::string& name);
/// Makes the key where it is missing.
KEX_BASE_API bool registrySetValue(const std::string& key, const std::string& name,
                                   const std::string& value);
/// Removes a key with its values and all keys below it. True when it does not exist afterwards.
KEX_BASE_API bool registryRemoveKey(const std::string& key);

} // namespace kexos
