// SPDX-License-Identifier: LicenseRef-ORVALD
// The settings that the module makes sure of when it is loaded, and the configuration file.
#pragma once

#include "kex/string.h"

namespace KEX {

/// "2015.<high>.<low>" with the two bytes of the host's release; made once.
const ACHAR* regCurVer();

/// Reads "Kex_Main.cfg" into the configuration.
void loadConfiguration();
/// Saves it there when something has changed.
void saveConfiguration();
/// Full name of "Kex_Main.cfg".
CKexString configurationFile();

/// Brings every setting into being, a missing one with its default, and puts the ones that other
/// parts hold in their places: tolerance, languages, version.
void establishSettings();

} // namespace KEX
