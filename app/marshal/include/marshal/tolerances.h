// SPDX-License-Identifier: LicenseRef-ORVALD
// The tolerances of the configuration as a running LISP function sees them: what it has just set
// holds.
#pragma once

namespace KEX {

/// _RNDL: two points nearer than this are one, a drawing unit's length.
double lengthTolerance();
/// _RNDA: difference of angles, directions, bulges and cosines that counts as none; 1e-6 when it is
/// not configured.
double angleTolerance();
/// _RNDF: the shop's tolerance of lengths, a drawing unit's length; 0.001 when it is not
/// configured.
double fabricationTolerance();

} // namespace KEX
