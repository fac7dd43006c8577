// SPDX-License-Identifier: LicenseRef-ORVALD
// What the platform says about dialog windows, under Windows and under the headless host.
#pragma once

namespace KEX::platform {

/// A box of the host is open and has the user's input.
bool dialogActive();
/// Window that has the focus; null when there is none.
void* activeWindow();

} // namespace KEX::platform
