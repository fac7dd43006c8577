// SPDX-License-Identifier: LicenseRef-ORVALD
// Carries precompiled standard headers; holds nothing itself.
