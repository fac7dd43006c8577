// SPDX-License-Identifier: LicenseRef-ORVALD
// Carries the precompiled headers of all test programs; does nothing itself.
int main() {}
